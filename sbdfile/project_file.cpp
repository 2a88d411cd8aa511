#include "sbdfile/project_file.h"

#include "project/file_access.h"
#include "project/sbd_data.h"
#include "sbdfile/file_errors.h"
#include "sbdfile/grid_names.h"
#include "sbdfile/reader.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <iterator>
#include <limits>
#include <memory>
#include <string_view>

namespace sbd {

namespace {

/// Cells are found by 32-bit places in their column, so that no file may be larger.
constexpr std::uintmax_t kLargestFile = std::numeric_limits<std::uint32_t>::max();

struct ErrorText {
    int code;
    std::string_view words;
};

constexpr ErrorText kErrorTexts[] = {
    {ENOENT, "ファイルまたはフォルダーがありません"},
    {ENOTDIR, "パスの途中にフォルダーでないものがあります"},
    {EISDIR, "フォルダーです"},
    {EACCES, "アクセスが許可されていません"},
    {EPERM, "操作が許可されていません"},
    {EROFS, "読み取り専用のファイルシステムです"},
    {ENOSPC, "ディスクに空きがありません"},
    {EFBIG, "ファイルの大きさの上限を超えています"},
#ifdef EDQUOT
    {EDQUOT, "ディスク使用量の割り当てを超えています"},
#endif
    {EIO, "入出力エラーです"},
    {ENXIO, "相手のデバイスまたはプログラムがありません"},
    {ENODEV, "デバイスがありません"},
    {EBUSY, "使用中です"},
    {EEXIST, "同じ名前のファイルがすでにあります"},
    {EINVAL, "使えない名前または値です"},
    {ENAMETOOLONG, "名前またはパスが長すぎます"},
    {ELOOP, "リンクの段数が多すぎます"},
    {EMFILE, "開いているファイルが多すぎます"},
    {ENFILE, "システムで開いているファイルが多すぎます"},
    {ENOMEM, "メモリーが足りません"},
    {EINTR, "処理が中断されました"},
    {EPIPE, "相手のプログラムが終了しました"},
    {ETIMEDOUT, "時間内に応答がありませんでした"},
#ifdef ESTALE
    {ESTALE, "ネットワークドライブとの接続が切れています"},
#endif
#ifdef EHOSTDOWN
    {EHOSTDOWN, "ネットワークドライブの相手が停止しています"},
#endif
    {EHOSTUNREACH, "ネットワークドライブの相手に接続できません"},
    {ENETUNREACH, "ネットワークに接続できません"},
    {ENOTCONN, "ネットワークに接続されていません"},
};

std::string WordsOf(int code)
{
    const auto text = std::ranges::find(kErrorTexts, code, &ErrorText::code);
    return text != std::end(kErrorTexts) ? std::string(text->words) : "エラー番号 " + std::to_string(code);
}

} // namespace

FileResult ErrorOfCode(int code)
{
    FileResult result;
    result.detail = WordsOf(code);
    switch (code) {
    case ENOENT:
    case ENOTDIR:
        result.error = FileError::NotFound;
        break;
    case EISDIR:
        result.error = FileError::IsFolder;
        break;
    case EACCES:
    case EPERM:
    case EROFS:
        result.error = FileError::NoPermission;
        break;
    case ENOSPC:
    case EFBIG:
#ifdef EDQUOT
    case EDQUOT:
#endif
        result.error = FileError::DiskFull;
        break;
    default:
        result.error = FileError::Other;
    }
    return result;
}

FileResult ReadFileBytes(const std::filesystem::path& path, std::string& bytes)
{
    const FileFacts facts = LookAtFile(path);
    if (facts.kind == FileFacts::Kind::Folder)
        return ErrorOfCode(EISDIR);
    if (facts.kind == FileFacts::Kind::Other)
        return {FileError::NoPlainFile, "パイプ、デバイスまたはソケットです"};
    const FileHandle file = OpenForReading(path);
    if (!file)
        return ErrorOfCode(errno);
    bytes.clear();
    if (facts.size <= kLargestFile)
        bytes.reserve(static_cast<std::size_t>(facts.size));
    std::unique_ptr<char[]> buffer = std::make_unique<char[]>(1U << 20);
    while (const std::size_t count = std::fread(buffer.get(), 1, 1U << 20, file.get())) {
        if (bytes.size() + count > kLargestFile)
            return ErrorOfCode(EFBIG);
        bytes.append(buffer.get(), count);
    }
    return std::ferror(file.get()) ? ErrorOfCode(errno) : FileResult();
}

std::filesystem::path NamesFileBeside(const std::filesystem::path& project)
{
    std::filesystem::path names = project;
    names.replace_extension(".abd");
    return names;
}

void TakeProject(std::string_view bytes, const std::optional<std::filesystem::path>& names, CSbdData& data)
{
    if (names)
        ReadGridNames(*names, data);
    else
        ReadGridNamesFromBytes({}, data);
    ReadProject(bytes, data);
}

FileResult LoadProject(const std::filesystem::path& path, const std::optional<std::filesystem::path>& names,
                       CSbdData& data)
{
    std::string bytes;
    FileResult result = ReadFileBytes(path, bytes);
    if (!result.Ok())
        return result;
    TakeProject(bytes, names, data);
    return result;
}

} // namespace sbd

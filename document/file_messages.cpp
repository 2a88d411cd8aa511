#include "document/file_messages.h"

#include <QDir>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

struct Wording {
    FileError error;
    QStringView cause;
    QStringView remedy;
};

// Windows gives the same refusal for a file that another program has open.
#ifdef Q_OS_WIN
constexpr QStringView kMayNotRead = u"読み取る権限がないか、ほかのプログラムが使用中です。";
constexpr QStringView kMayNotWrite = u"書き込む権限がないか、読み取り専用か、ほかのプログラムが使用中です。";
constexpr QStringView kLetWrite =
    u"ファイルを使用しているプログラムを終了するか、ファイルとフォルダーの読み取り専用を解除するか、"
    u"「名前を付けて保存」で別の場所に保存してください。";
#else
constexpr QStringView kMayNotRead = u"読み取る権限がありません。";
constexpr QStringView kMayNotWrite = u"書き込む権限がないか、読み取り専用です。";
constexpr QStringView kLetWrite =
    u"ファイルとフォルダーの読み取り専用を解除するか、「名前を付けて保存」で別の場所に保存してください。";
#endif

constexpr Wording kOpenWordings[] = {
    {FileError::NotFound, u"ファイルが見つかりません。",
     u"移動や名前の変更、ネットワークドライブや USB メモリの接続を確認して、もう一度開いてください。"},
    {FileError::IsFolder, u"ファイルではなくフォルダーです。",
     u"フォルダーの中のプロジェクトファイル (*.sbd) を選んでください。"},
    {FileError::NoPlainFile, u"ふつうのファイルではありません。", u"プロジェクトファイル (*.sbd) を選んでください。"},
    {FileError::NoPermission, kMayNotRead,
     u"ファイルのアクセス権を確認するか、ファイルの管理者に問い合わせてから、もう一度開いてください。"},
    {FileError::Other, u"読み取り中にエラーが起きました。",
     u"ドライブやネットワークの状態を確認して、もう一度開いてください。"},
};

constexpr Wording kSaveWordings[] = {
    {FileError::NotFound, u"保存先のフォルダーが見つかりません。",
     u"ネットワークドライブや USB メモリの接続を確認するか、「名前を付けて保存」で別の場所に保存してください。"},
    {FileError::IsFolder, u"同じ名前のフォルダーがあります。", u"「名前を付けて保存」で別の名前を付けてください。"},
    {FileError::NoPlainFile, u"保存先がふつうのファイルではありません。",
     u"「名前を付けて保存」で別の名前を付けてください。"},
    {FileError::NoPermission, kMayNotWrite, kLetWrite},
    {FileError::DiskFull, u"ディスクの空き容量が足りません。",
     u"不要なファイルを削除して空きを作るか、「名前を付けて保存」で別のドライブに保存してください。"},
    {FileError::Other, u"書き込み中にエラーが起きました。",
     u"ドライブやネットワークの状態を確認して保存し直すか、「名前を付けて保存」で別の場所に保存してください。"},
};

/// The last wording stands for every error that has none of its own.
template <std::size_t Count>
const Wording& Find(const Wording (&wordings)[Count], FileError error)
{
    for (const Wording& wording : wordings) {
        if (wording.error == error)
            return wording;
    }
    return wordings[Count - 1];
}

} // namespace

QString FileMessage(FileOperation operation, const QString& path, const FileResult& result)
{
    const bool open = operation == FileOperation::Open;
    const Wording& wording = open ? Find(kOpenWordings, result.error) : Find(kSaveWordings, result.error);
    const QString outcome = open ? u"プロジェクトを開けませんでした。"_s : u"プロジェクトを保存できませんでした。"_s;
    QString data = u"ファイルには何も変更を加えていません。"_s;
    if (!open)
        data = result.error == FileError::NotFound
                   ? u"入力内容は画面に残っています。"_s
                   : u"入力内容は画面に残っています。元のファイルはそのまま残っています。"_s;
    QString text = outcome + u'\n' + QDir::toNativeSeparators(path) + u"\n\n"_s + wording.cause.toString() + u'\n'
                   + data + u"\n\n"_s + wording.remedy.toString();
    if (!result.detail.empty())
        text += u"\n\n(詳細: "_s + QString::fromStdString(result.detail) + u')';
    return text;
}

QString NotAProjectMessage(const QString& path)
{
    return u"プロジェクトを開けませんでした。\n"_s + QDir::toNativeSeparators(path)
           + u"\n\n拡張子が .sbd ではありません。ファイルには何も変更を加えていません。\n\n"
             u"プロジェクトファイル (*.sbd) を選んでください。"_s;
}

} // namespace sbd

#include "document/engine_path.h"

#include "document/section_doc.h"

#include <QDir>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

/// True if the character comes back from CP932 as it was: a look-alike would name another file.
bool IsInCp932(const QString& character)
{
    if (character.size() == 1 && character[0].isSurrogate())
        return false; // a byte that is no character
    const std::optional<std::string> bytes = fromQString(character);
    return bytes && toQString(*bytes) == character;
}

} // namespace

QString CharacterEnginesCannotTake(const QString& path)
{
    for (qsizetype i = 0; i < path.size();) {
        const bool pair = path[i].isHighSurrogate() && i + 1 < path.size() && path[i + 1].isLowSurrogate();
        QString character = path.mid(i, pair ? 2 : 1);
        if (character[0] == u'"' || character[0] < u' ' || !IsInCp932(character))
            return character;
        i += character.size();
    }
    return {};
}

QString EngineCannotTakeMessage(const QString& path, const QString& character)
{
    return u"解析プログラムを開始しませんでした。\n"_s + QDir::toNativeSeparators(path)
           + u"\n\nフォルダー名またはファイル名にある文字「"_s + character
           + u"」を、解析プログラムは扱えません(Shift-JIS にない文字、または記号)。"
             u"プロジェクトには何も変更を加えていません。\n\n"
             u"「名前を付けて保存」で、この文字を含まない場所と名前に保存してから、もう一度実行してください。"_s;
}

} // namespace sbd

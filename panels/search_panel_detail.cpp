#include "panels/search_panel_detail.h"

#include "document/section_doc.h"
#include "project/option_rows.h"

#include <QCoreApplication>
#include <QStringList>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kScheme = "cell"_L1;
constexpr auto kParagraph = "<p style=\"margin-top:4px; margin-bottom:4px\">%1</p>"_L1;
constexpr auto kList = "<ul style=\"margin-top:0px; margin-left:12px; -qt-list-indent:0\">%1</ul>"_L1;

QString Tr(const char* text)
{
    return QCoreApplication::translate("CDown999", text);
}

QString Text8(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
}

QString Heading(const QString& text)
{
    return u"<h4 style=\"margin-top:0px; margin-bottom:6px\">%1</h4>"_s.arg(text.toHtmlEscaped());
}

QString Paragraph(const QString& html)
{
    return QString(kParagraph).arg(html);
}

QString Link(const SearchPlace& place, const QString& text)
{
    return u"<a href=\"%1:%2/%3/%4\">%5</a>"_s.arg(kScheme)
        .arg(place.block)
        .arg(place.row)
        .arg(place.column)
        .arg(text.toHtmlEscaped());
}

QString QuestionHtml(const Question& question)
{
    QString html = Heading(Text8(question.question));
    for (const QString& line : Text8(question.answer).split(u'\n'))
        html += Paragraph(line.toHtmlEscaped());
    QString places;
    for (const SearchPlace& place : question.places)
        places += u"<li>%1</li>"_s.arg(Link(place, Text8(PlaceText(place))));
    return html + Paragraph(u"<b>%1</b>"_s.arg(Tr("関係する入力 (クリックで移動します)"))) + QString(kList).arg(places);
}

/// Value and default of an option row.
QString ValueHtml(const SearchPlace& place, const CSbdData& data)
{
    const OptionBlock* options = FindOptionBlock(place.block);
    const auto row = static_cast<std::size_t>(place.row) - 1;
    if (options == nullptr || place.row == 0 || row >= options->rows.size())
        return {};
    const QString value = toQString(data.Option(place.block, row));
    return Paragraph(Tr("現在の入力：%1").arg(value.isEmpty() ? Tr("(空)") : value.toHtmlEscaped()))
           + Paragraph(Tr("初期値：%1").arg(toQString(options->rows[row].defaultValue).toHtmlEscaped()));
}

QString ChoicesHtml(const SearchPlace& place)
{
    QStringList choices;
    for (const std::string& choice : ChoicesAt(place))
        choices << Text8(choice).toHtmlEscaped();
    return choices.isEmpty() ? QString() : Paragraph(Tr("選択肢：%1").arg(choices.join(u"，"_s)));
}

QString PlaceHtml(const SearchPlace& place, const CSbdData& data)
{
    const QString jump =
        IsJumpBlock(place.block) ? Link(place, Tr("入力位置へ移動")) : Tr("この項目は，左の一覧から開いて下さい．");
    return Heading(Text8(PlaceText(place))) + ValueHtml(place, data) + ChoicesHtml(place) + Paragraph(jump);
}

} // namespace

QString SearchDetailHtml(const SearchEntry* entry, const CSbdData& data)
{
    if (entry == nullptr)
        return Paragraph(Tr("第１行に言葉を入力するか，一覧から選んで下さい．「Q&A」を選ぶと，質問と答えが出ます．")
                             .toHtmlEscaped())
               + Paragraph(
                   Tr("行を選ぶと，ここに説明が出ます．ダブルクリック，Enter または Ctrl+M で入力位置へ移動します．"));
    return entry->question != nullptr ? QuestionHtml(*entry->question) : PlaceHtml(entry->place, data);
}

std::optional<SearchPlace> PlaceOfLink(const QUrl& link)
{
    const QStringList numbers = link.path().split(u'/');
    if (link.scheme() != kScheme || numbers.size() != 3)
        return std::nullopt;
    return SearchPlace{numbers[0].toInt(), numbers[1].toInt(), numbers[2].toInt()};
}

} // namespace sbd

#include "upperview/pdf_outline.h"

#include "upperview/pdf_file.h"

#include <QByteArray>
#include <QIODevice>
#include <QList>

#include <algorithm>
#include <map>
#include <optional>

namespace sbd {

namespace {

QByteArray Reference(qint64 object)
{
    return PdfReference{object, 0}.Text();
}

QByteArray Number(double value)
{
    return QByteArray::number(value, 'f', 2);
}

/// A text of any characters: UTF-16, the greater byte first, in hexadecimal.
QByteArray TextString(const QString& text)
{
    QByteArray hex = "<FEFF";
    for (const QChar c : text)
        hex += QByteArray::number(0x10000 + c.unicode(), 16).mid(1).toUpper();
    return hex + '>';
}

/// Where a line leads: the page as wide as the viewer has it.
QByteArray Destination(const PdfPage& page, double fromTop)
{
    return "[" + page.object.Text() + " /XYZ null " + Number(page.box.bottom() - fromTop) + " null]"; // y is upward
}

/// One line's place among the others; -1: none.
struct Family {
    qsizetype parent = -1;
    qsizetype first = -1;
    qsizetype last = -1;
    qsizetype before = -1;
    qsizetype after = -1;
    int children = 0;
};

std::vector<Family> FamiliesOf(const std::vector<PdfBookmark>& bookmarks)
{
    std::vector<Family> families(bookmarks.size());
    std::map<int, qsizetype> last; // of each level
    for (std::size_t i = 0; i < bookmarks.size(); ++i) {
        const int level = bookmarks[i].level;
        const auto place = static_cast<qsizetype>(i);
        last.erase(last.upper_bound(level), last.end());
        const auto above = last.find(level - 1);
        const auto brother = last.find(level);
        if (above != last.end()) {
            Family& parent = families[static_cast<std::size_t>(above->second)];
            families[i].parent = above->second;
            parent.first = parent.first < 0 ? place : parent.first;
            parent.last = place;
            ++parent.children;
        }
        if (brother != last.end()) {
            families[i].before = brother->second;
            families[static_cast<std::size_t>(brother->second)].after = place;
        }
        last[level] = place;
    }
    return families;
}

/// The objects of the list: its root, then one a line.
QList<QByteArray> OutlineObjects(const CPdfFile& file, const std::vector<PdfBookmark>& bookmarks)
{
    const qint64 root = file.FreeNumber();
    const std::vector<Family> families = FamiliesOf(bookmarks);
    const auto reference = [root](qsizetype line) { return Reference(root + 1 + line); };
    qsizetype lastOfAll = 0;
    int top = 0;
    for (std::size_t i = 0; i < families.size(); ++i)
        if (families[i].parent < 0) {
            lastOfAll = static_cast<qsizetype>(i);
            ++top;
        }
    QList<QByteArray> objects = {"<< /Type /Outlines /First " + reference(0) + " /Last " + reference(lastOfAll)
                                 + " /Count " + QByteArray::number(top) + " >>"};
    for (std::size_t i = 0; i < bookmarks.size(); ++i) {
        const Family& family = families[i];
        QByteArray object = "<< /Title " + TextString(bookmarks[i].title) + " /Parent "
                            + (family.parent < 0 ? Reference(root) : reference(family.parent));
        const std::pair<const char*, qsizetype> others[] = {{" /Prev ", family.before},
                                                            {" /Next ", family.after},
                                                            {" /First ", family.first},
                                                            {" /Last ", family.last}};
        for (const auto& other : others)
            if (other.second >= 0)
                object += other.first + reference(other.second);
        if (family.children > 0)
            object += " /Count -" + QByteArray::number(family.children); // folded
        objects.append(object + " /Dest " + Destination(file.Pages()[bookmarks[i].page], bookmarks[i].fromTop) + " >>");
    }
    return objects;
}

/// Objects that are written anew, or for the first time.
struct NewObject {
    qint64 generation = 0;
    QByteArray text;
};
using NewObjects = std::map<qint64, NewObject>;

/// One link as it stands in a page's list.
QByteArray LinkText(const CPdfFile& file, const PdfLink& link)
{
    const QRectF& box = file.Pages()[link.page].box;
    return "<< /Type /Annot /Subtype /Link /Border [0 0 0] /Rect [" + Number(box.left() + link.place.left()) + ' '
           + Number(box.bottom() - link.place.bottom()) + ' ' + Number(box.left() + link.place.right()) + ' '
           + Number(box.bottom() - link.place.top()) + "] /Dest " + Destination(file.Pages()[link.target], link.fromTop)
           + " >>";
}

/// The links behind those that a page has already: in its list where that is an object, else in the page. False if what
/// stands there is no list.
bool AddLinks(CPdfFile& file, const std::vector<PdfLink>& links, NewObjects& changed)
{
    std::map<int, QByteArray> added; // by page
    for (const PdfLink& link : links)
        added[link.page] += LinkText(file, link) + '\n';
    for (const auto& of : added) {
        const PdfReference object = file.Pages()[of.first].object;
        std::optional<CPdfDictionary> page = CPdfDictionary::Read(file.Object(object));
        if (!page)
            return false;
        const QByteArray value = page->Value("/Annots");
        const std::optional<PdfReference> elsewhere = ReadPdfReference(value);
        const QByteArray before = elsewhere ? file.Object(*elsewhere) : value.isEmpty() ? QByteArray("[]") : value;
        const std::optional<QList<QByteArray>> there = ReadPdfArray(before);
        if (!there || (elsewhere && changed.contains(elsewhere->number))) // which another page has too
            return false;
        const QByteArray list = "[\n" + (there->isEmpty() ? QByteArray() : there->join('\n') + '\n') + of.second + ']';
        if (elsewhere) {
            changed[elsewhere->number] = {elsewhere->generation, list};
        } else {
            page->Set("/Annots", list);
            changed[object.number] = {object.generation, page->Text()};
        }
    }
    return true;
}

/// What goes behind a file: the objects, the table of them, its dictionary.
QByteArray UpdateOf(const CPdfFile& file, qint64 start, const NewObjects& changed)
{
    QByteArray update = "\n";
    QByteArray table = "xref\n";
    for (const auto& object : changed) {
        const qint64 place = start + update.size();
        const QByteArray generation = QByteArray::number(object.second.generation);
        table += QByteArray::number(object.first) + " 1\n" + QByteArray::number(place).rightJustified(10, '0') + ' '
                 + generation.rightJustified(5, '0') + " n \n";
        update += QByteArray::number(object.first) + ' ' + generation + " obj\n" + object.second.text + "\nendobj\n";
    }
    CPdfDictionary trailer = file.Trailer();
    trailer.Set("/Size", QByteArray::number(std::max(file.FreeNumber(), changed.rbegin()->first + 1)));
    trailer.Set("/Prev", QByteArray::number(file.Table()));
    const qint64 tablePlace = start + update.size();
    return update + table + "trailer\n" + trailer.Text() + "\nstartxref\n" + QByteArray::number(tablePlace)
           + "\n%%EOF\n";
}

bool ArePages(const CPdfFile& file, const std::vector<PdfBookmark>& bookmarks, const std::vector<PdfLink>& links)
{
    const auto isPage = [&file](int page) { return page >= 0 && page < file.Pages().size(); };
    int level = -1;
    for (const PdfBookmark& bookmark : bookmarks) {
        if (!isPage(bookmark.page) || bookmark.level < 0 || bookmark.level > level + 1)
            return false;
        level = bookmark.level;
    }
    return std::ranges::all_of(links, [&](const PdfLink& link) { return isPage(link.page) && isPage(link.target); });
}

} // namespace

PdfOutlineResult AppendPdfOutline(QIODevice& pdf, const std::vector<PdfBookmark>& bookmarks,
                                  const std::vector<PdfLink>& links)
{
    CPdfFile file(pdf);
    if (file.GetState() == CPdfFile::State::NotWhole)
        return PdfOutlineResult::NotWhole;
    if (file.GetState() != CPdfFile::State::Read)
        return PdfOutlineResult::UnknownForm;
    if (!ArePages(file, bookmarks, links))
        return PdfOutlineResult::NoSuchPage;

    NewObjects changed;
    if (!AddLinks(file, links, changed))
        return PdfOutlineResult::UnknownForm;
    if (!bookmarks.empty()) {
        const std::optional<PdfReference> root = file.Trailer().Reference("/Root");
        std::optional<CPdfDictionary> catalogue = root ? CPdfDictionary::Read(file.Object(*root)) : std::nullopt;
        if (!catalogue || !catalogue->Value("/Outlines").isEmpty())
            return PdfOutlineResult::UnknownForm;
        catalogue->Set("/Outlines", Reference(file.FreeNumber()));
        catalogue->Set("/PageMode", "/UseOutlines");
        changed[root->number] = {root->generation, catalogue->Text()};
        const QList<QByteArray> lines = OutlineObjects(file, bookmarks);
        for (qsizetype i = 0; i < lines.size(); ++i)
            changed[file.FreeNumber() + i] = {0, lines[i]};
    }
    if (changed.empty())
        return PdfOutlineResult::Appended;
    const QByteArray update = UpdateOf(file, pdf.size(), changed);
    return pdf.seek(pdf.size()) && pdf.write(update) == update.size() ? PdfOutlineResult::Appended
                                                                      : PdfOutlineResult::NotWritten;
}

} // namespace sbd

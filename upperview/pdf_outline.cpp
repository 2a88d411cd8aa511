#include "upperview/pdf_outline.h"

#include <QByteArray>
#include <QIODevice>
#include <QList>

#include <algorithm>
#include <map>
#include <optional>

namespace sbd {

namespace {

constexpr qint64 kTail = 1024;               // in which the place of the table of objects stands
constexpr qint64 kLongestObject = 4'000'000; // a page tree of 100,000 pages
constexpr qint64 kMostObjects = 5'000'000;

/// The number behind a word ("/Size 33"), or nothing.
std::optional<qint64> NumberBehind(const QByteArray& text, const char* word)
{
    const qsizetype at = text.indexOf(word);
    if (at < 0)
        return std::nullopt;
    qsizetype from = at + qsizetype(qstrlen(word));
    while (from < text.size() && (text[from] == ' ' || text[from] == '\n'))
        ++from;
    qsizetype to = from;
    while (to < text.size() && text[to] >= '0' && text[to] <= '9')
        ++to;
    bool isNumber = false;
    const qint64 number = text.mid(from, to - from).toLongLong(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

QByteArray Reference(qint64 object)
{
    return QByteArray::number(object) + " 0 R";
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

/// What of a file has to be known: where its objects are, and its pages.
class PdfFile {
public:
    explicit PdfFile(QIODevice& pdf) : pdf_(pdf) {}

    [[nodiscard]] bool Read()
    {
        const qint64 tailAt = std::max<qint64>(0, pdf_.size() - kTail);
        const QByteArray tail = BytesAt(tailAt, kTail);
        const std::optional<qint64> table =
            NumberBehind(tail.mid(std::max<qsizetype>(0, tail.lastIndexOf("startxref"))), "startxref");
        if (!tail.trimmed().endsWith("%%EOF") || !table)
            return false;
        table_ = *table;
        const QByteArray behind = BytesAt(table_, pdf_.size() - table_);
        const qsizetype trailerAt = behind.lastIndexOf("trailer");
        if (!behind.startsWith("xref") || trailerAt < 0)
            return false;
        const QByteArray trailer = behind.mid(trailerAt);
        const std::optional<qint64> size = NumberBehind(trailer, "/Size");
        const std::optional<qint64> root = NumberBehind(trailer, "/Root");
        const std::optional<qint64> info = NumberBehind(trailer, "/Info");
        // One section from 0 on, lines of 20 bytes.
        const qsizetype lines = behind.indexOf('\n', behind.indexOf('\n') + 1) + 1;
        if (!size || !root || !info || *size < 1 || *size > kMostObjects || lines < 1 || trailerAt < lines + *size * 20)
            return false;
        size_ = *size;
        root_ = *root;
        info_ = *info;
        for (qint64 i = 0; i < size_; ++i)
            places_.append(behind.mid(lines + i * 20, 10).toLongLong());
        return ReadPages();
    }

    /// The text of an object between "obj" and "endobj"; empty if there is none.
    [[nodiscard]] QByteArray Object(qint64 number)
    {
        if (number < 1 || number >= size_)
            return {};
        const QByteArray head = QByteArray::number(number) + " 0 obj";
        for (qint64 most = 4096; most <= kLongestObject; most *= 8) {
            const QByteArray bytes = BytesAt(places_[number], most);
            if (!bytes.startsWith(head))
                return {};
            if (const qsizetype end = bytes.indexOf("endobj"); end >= 0)
                return bytes.mid(head.size(), end - head.size()).trimmed();
        }
        return {};
    }

    [[nodiscard]] const QList<qint64>& Pages() const { return pages_; }
    [[nodiscard]] qint64 Size() const { return size_; }
    [[nodiscard]] qint64 Root() const { return root_; }
    [[nodiscard]] qint64 Info() const { return info_; }
    [[nodiscard]] qint64 Table() const { return table_; }

    /// Height of a page in points.
    [[nodiscard]] double HeightOf(int page)
    {
        const QByteArray object = Object(pages_[page]);
        const qsizetype box = object.indexOf("/MediaBox [");
        const qsizetype end = object.indexOf(']', box);
        return box < 0 || end < 0 ? 0
                                  : object.mid(box + 11, end - box - 11).simplified().split(' ').value(3).toDouble();
    }

private:
    [[nodiscard]] QByteArray BytesAt(qint64 place, qint64 count)
    {
        return place >= 0 && pdf_.seek(place) ? pdf_.read(count) : QByteArray();
    }

    [[nodiscard]] bool ReadPages()
    {
        const std::optional<qint64> tree = NumberBehind(Object(root_), "/Pages");
        const QByteArray list = tree ? Object(*tree) : QByteArray();
        const std::optional<qint64> count = NumberBehind(list, "/Count");
        const qsizetype from = list.indexOf('[', list.indexOf("/Kids"));
        const qsizetype to = list.indexOf(']', from);
        if (!count || from < 0 || to < 0)
            return false;
        const QList<QByteArray> words = list.mid(from + 1, to - from - 1).simplified().split(' ');
        for (qsizetype i = 0; i + 2 < words.size(); i += 3)
            pages_.append(words[i].toLongLong());
        return pages_.size() == *count
               && std::ranges::all_of(pages_, [this](qint64 page) { return page > 0 && page < size_; });
    }

    QIODevice& pdf_;
    qint64 table_ = 0;
    qint64 size_ = 0;
    qint64 root_ = 0;
    qint64 info_ = 0;
    QList<qint64> places_;
    QList<qint64> pages_;
};

/// Where a line leads: the page as wide as the viewer has it.
QByteArray Destination(PdfFile& file, int page, double fromTop)
{
    return "[" + Reference(file.Pages()[page]) + " /XYZ null " + Number(file.HeightOf(page) - fromTop) + " null]";
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
QList<QByteArray> OutlineObjects(PdfFile& file, const std::vector<PdfBookmark>& bookmarks)
{
    const qint64 root = file.Size();
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
        objects.append(object + " /Dest " + Destination(file, bookmarks[i].page, bookmarks[i].fromTop) + " >>");
    }
    return objects;
}

/// The lists of links of the pages, in the place of those that Qt has left empty; nothing if a page has none.
bool AddLinks(PdfFile& file, const std::vector<PdfLink>& links, std::map<qint64, QByteArray>& changed)
{
    for (const PdfLink& link : links) {
        const std::optional<qint64> list = NumberBehind(file.Object(file.Pages()[link.page]), "/Annots");
        if (!list)
            return false;
        const double height = file.HeightOf(link.page);
        changed[*list] += "<< /Type /Annot /Subtype /Link /Border [0 0 0] /Rect [" + Number(link.place.left()) + ' '
                          + Number(height - link.place.bottom()) + ' ' + Number(link.place.right()) + ' '
                          + Number(height - link.place.top()) + "] /Dest "
                          + Destination(file, link.target, link.fromTop) + " >>\n";
    }
    for (auto& list : changed)
        list.second = "[\n" + list.second + ']';
    return true;
}

} // namespace

bool AppendPdfOutline(QIODevice& pdf, const std::vector<PdfBookmark>& bookmarks, const std::vector<PdfLink>& links)
{
    PdfFile file(pdf);
    if (!file.Read())
        return false;
    const auto pages = static_cast<int>(file.Pages().size());
    const auto isPage = [pages](int page) { return page >= 0 && page < pages; };
    int level = -1;
    for (const PdfBookmark& bookmark : bookmarks) {
        if (!isPage(bookmark.page) || bookmark.level < 0 || bookmark.level > level + 1)
            return false;
        level = bookmark.level;
    }
    if (!std::ranges::all_of(links, [&](const PdfLink& link) { return isPage(link.page) && isPage(link.target); }))
        return false;

    std::map<qint64, QByteArray> changed; // objects by their numbers
    if (!AddLinks(file, links, changed))
        return false;
    if (!bookmarks.empty()) {
        QByteArray catalogue = file.Object(file.Root());
        const qsizetype end = catalogue.lastIndexOf(">>");
        if (end < 0)
            return false;
        catalogue.insert(end, "/Outlines " + Reference(file.Size()) + "\n/PageMode /UseOutlines\n");
        changed[file.Root()] = catalogue;
        const QList<QByteArray> lines = OutlineObjects(file, bookmarks);
        for (qsizetype i = 0; i < lines.size(); ++i)
            changed[file.Size() + i] = lines[i];
    }
    if (changed.empty())
        return true;

    const qint64 start = pdf.size();
    QByteArray update = "\n";
    QByteArray table = "xref\n";
    for (const auto& object : changed) {
        const qint64 place = start + update.size();
        table += QByteArray::number(object.first) + " 1\n" + QByteArray::number(place).rightJustified(10, '0')
                 + " 00000 n \n";
        update += QByteArray::number(object.first) + " 0 obj\n" + object.second + "\nendobj\n";
    }
    const qint64 size = std::max(file.Size(), changed.rbegin()->first + 1);
    const qint64 tablePlace = start + update.size();
    update += table + "trailer\n<<\n/Size " + QByteArray::number(size) + "\n/Info " + Reference(file.Info())
              + "\n/Root " + Reference(file.Root()) + "\n/Prev " + QByteArray::number(file.Table())
              + "\n>>\nstartxref\n" + QByteArray::number(tablePlace) + "\n%%EOF\n";
    return pdf.seek(start) && pdf.write(update) == update.size();
}

} // namespace sbd

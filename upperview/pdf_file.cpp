#include "upperview/pdf_file.h"

#include <QIODevice>
#include <QSet>

#include <algorithm>

namespace sbd {

namespace {

constexpr qint64 kTail = 2048;               // in which the place of the last table stands
constexpr qint64 kLongestObject = 4'000'000; // a page tree of 100,000 pages
constexpr qint64 kMostObjects = 5'000'000;
constexpr int kMostTables = 1000;
constexpr int kDeepest = 64; // of values in values, and of groups of pages

bool IsBlank(char c)
{
    return c == ' ' || c == '\n' || c == '\r' || c == '\t' || c == '\f' || c == '\0';
}

bool IsDelimiter(char c)
{
    return QByteArrayView("()<>[]{}/%").contains(c);
}

bool IsDigits(QByteArrayView text)
{
    return !text.isEmpty() && text.size() < 16
           && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

std::optional<qint64> IntegerOf(QByteArrayView text)
{
    return IsDigits(text) ? std::optional(text.toByteArray().toLongLong()) : std::nullopt;
}

/// Walks through the values of a text. Beyond the end it finds empty ones.
class Walker {
public:
    explicit Walker(QByteArrayView text) : text_(text) {}

    [[nodiscard]] qsizetype At() const { return at_; }
    void GoTo(qsizetype place) { at_ = place; }

    void SkipBlanks()
    {
        while (at_ < text_.size() && (IsBlank(text_[at_]) || text_[at_] == '%')) {
            if (text_[at_] == '%')
                while (at_ < text_.size() && text_[at_] != '\n' && text_[at_] != '\r')
                    ++at_;
            else
                ++at_;
        }
    }

    /// A word, a name, a number, a bracket or a string, as it stands.
    QByteArrayView Token()
    {
        SkipBlanks();
        const qsizetype from = at_;
        if (at_ >= text_.size())
            return {};
        if (text_[at_] == '(')
            return String() ? text_.sliced(from, at_ - from) : QByteArrayView();
        if (const QByteArrayView two = text_.sliced(at_).first(std::min<qsizetype>(2, text_.size() - at_));
            two == "<<" || two == ">>") {
            at_ += 2;
            return two;
        }
        if (text_[at_] == '<') {
            const qsizetype end = text_.indexOf('>', at_);
            at_ = end < 0 ? text_.size() : end + 1;
            return end < 0 ? QByteArrayView() : text_.sliced(from, at_ - from);
        }
        ++at_;
        if (IsDelimiter(text_[from]) && text_[from] != '/')
            return text_.sliced(from, 1);
        while (at_ < text_.size() && !IsBlank(text_[at_]) && !IsDelimiter(text_[at_]))
            ++at_;
        return text_.sliced(from, at_ - from);
    }

    /// A whole value, as it stands: "12 0 R", "<< ... >>"; empty: none.
    QByteArrayView Value(int depth = 0)
    {
        SkipBlanks();
        const qsizetype from = at_;
        const QByteArrayView token = Token();
        const auto whole = [&] { return text_.sliced(from, at_ - from); };
        if (token == "<<" || token == "[") {
            const QByteArrayView end = token == "[" ? "]" : ">>";
            while (depth < kDeepest) {
                const qsizetype before = at_;
                if (Token() == end)
                    return whole();
                at_ = before;
                if (Value(depth + 1).isEmpty())
                    return {};
            }
            return {};
        }
        if (token == "]" || token == ">>")
            return {};
        if (!IsDigits(token))
            return token;
        const qsizetype behind = at_; // a number, or the first word of a reference
        if (IsDigits(Token()) && Token() == "R")
            return whole();
        at_ = behind;
        return whole();
    }

private:
    bool String()
    {
        int open = 0;
        for (; at_ < text_.size(); ++at_) {
            const char c = text_[at_];
            if (c == '\\')
                ++at_;
            else if (c == '(')
                ++open;
            else if (c == ')' && --open == 0) {
                ++at_;
                return true;
            }
        }
        at_ = text_.size();
        return false;
    }

    QByteArrayView text_;
    qsizetype at_ = 0;
};

/// "12 0 obj" at the head of a text, and where it ends.
struct ObjectHead {
    qint64 number = 0;
    qint64 generation = 0;
    qsizetype end = 0;
};
std::optional<ObjectHead> HeadOf(QByteArrayView text)
{
    Walker walker(text);
    const std::optional<qint64> number = IntegerOf(walker.Token());
    const std::optional<qint64> generation = IntegerOf(walker.Token());
    if (!number || !generation || walker.Token() != "obj")
        return std::nullopt;
    return ObjectHead{*number, *generation, walker.At()};
}

} // namespace

// --- values ------------------------------------------------------------------------------------------

std::optional<CPdfDictionary> CPdfDictionary::Read(QByteArrayView text)
{
    Walker walker(text);
    if (walker.Token() != "<<")
        return std::nullopt;
    CPdfDictionary dictionary;
    while (true) {
        const QByteArrayView name = walker.Token();
        if (name == ">>")
            return dictionary;
        const QByteArrayView value = name.startsWith('/') ? walker.Value() : QByteArrayView();
        if (value.isEmpty())
            return std::nullopt;
        dictionary.entries_.append({name.toByteArray(), value.toByteArray()});
    }
}

QByteArray CPdfDictionary::Value(QByteArrayView name) const
{
    const auto entry = std::ranges::find_if(entries_, [&](const auto& known) { return known.first == name; });
    return entry == entries_.end() ? QByteArray() : entry->second;
}

std::optional<qint64> CPdfDictionary::Integer(QByteArrayView name) const
{
    return IntegerOf(Value(name));
}

std::optional<PdfReference> CPdfDictionary::Reference(QByteArrayView name) const
{
    return ReadPdfReference(Value(name));
}

void CPdfDictionary::Set(const QByteArray& name, const QByteArray& value)
{
    for (auto& entry : entries_) {
        if (entry.first == name) {
            entry.second = value;
            return;
        }
    }
    entries_.append({name, value});
}

QByteArray CPdfDictionary::Text() const
{
    QByteArray text = "<<\n";
    for (const auto& entry : entries_)
        text += entry.first + ' ' + entry.second + '\n';
    return text + ">>";
}

std::optional<QList<QByteArray>> ReadPdfArray(QByteArrayView text)
{
    Walker walker(text);
    if (walker.Token() != "[")
        return std::nullopt;
    QList<QByteArray> elements;
    while (true) {
        const qsizetype before = walker.At();
        if (walker.Token() == "]")
            return elements;
        walker.GoTo(before);
        const QByteArrayView element = walker.Value();
        if (element.isEmpty())
            return std::nullopt;
        elements.append(element.toByteArray());
    }
}

std::optional<PdfReference> ReadPdfReference(QByteArrayView text)
{
    Walker walker(text);
    const std::optional<qint64> number = IntegerOf(walker.Token());
    const std::optional<qint64> generation = IntegerOf(walker.Token());
    if (!number || !generation || *number < 1 || *generation > 65'535 || walker.Token() != "R")
        return std::nullopt;
    return PdfReference{*number, *generation};
}

// --- the file ----------------------------------------------------------------------------------------

CPdfFile::CPdfFile(QIODevice& pdf) : pdf_(pdf)
{
    state_ = Read();
}

QByteArray CPdfFile::BytesAt(qint64 place, qint64 count)
{
    return place >= 0 && place < pdf_.size() && pdf_.seek(place) ? pdf_.read(count) : QByteArray();
}

CPdfFile::State CPdfFile::Read()
{
    const QByteArray tail = BytesAt(std::max<qint64>(0, pdf_.size() - kTail), kTail);
    const qsizetype start = tail.lastIndexOf("startxref");
    if (start < 0 || !tail.trimmed().endsWith("%%EOF"))
        return State::NotWhole;
    Walker walker(QByteArrayView(tail).sliced(start));
    (void)walker.Token();
    const std::optional<qint64> table = IntegerOf(walker.Token());
    if (!table)
        return State::UnknownForm;
    table_ = *table;
    if (!ReadTables() || !trailer_.Value("/Encrypt").isEmpty())
        return State::UnknownForm;
    const std::optional<PdfReference> root = trailer_.Reference("/Root");
    const std::optional<CPdfDictionary> catalogue = root ? CPdfDictionary::Read(Object(*root)) : std::nullopt;
    const std::optional<PdfReference> tree = catalogue ? catalogue->Reference("/Pages") : std::nullopt;
    if (!tree || !ReadPages(*tree, {}))
        return State::UnknownForm;
    const std::optional<CPdfDictionary> top = CPdfDictionary::Read(Object(*tree));
    return top && top->Integer("/Count") == pages_.size() ? State::Read : State::UnknownForm;
}

/// From the last one back; what a later one says of an object holds.
bool CPdfFile::ReadTables()
{
    QSet<qint64> seen;
    qint64 place = table_;
    for (int i = 0; i < kMostTables && !seen.contains(place); ++i) {
        seen.insert(place);
        const std::optional<CPdfDictionary> trailer = ReadTable(place);
        if (!trailer || !trailer->Value("/XRefStm").isEmpty()) // objects in streams beside the table
            return false;
        if (i == 0)
            trailer_ = *trailer;
        if (const std::optional<qint64> size = trailer->Integer("/Size"))
            freeNumber_ = std::max(freeNumber_, *size);
        const QByteArray previous = trailer->Value("/Prev");
        if (previous.isEmpty())
            return freeNumber_ > 0 && freeNumber_ <= kMostObjects;
        const std::optional<qint64> next = IntegerOf(previous);
        if (!next)
            return false;
        place = *next;
    }
    return false;
}

/// One table and the dictionary behind it.
std::optional<CPdfDictionary> CPdfFile::ReadTable(qint64 place)
{
    const QByteArray bytes = BytesAt(place, pdf_.size() - place);
    Walker walker(bytes);
    if (walker.Token() != "xref")
        return std::nullopt;
    while (true) {
        const QByteArrayView word = walker.Token();
        if (word == "trailer")
            return CPdfDictionary::Read(QByteArrayView(bytes).sliced(walker.At()));
        const std::optional<qint64> first = IntegerOf(word);
        const std::optional<qint64> count = IntegerOf(walker.Token());
        if (!first || !count || *first + *count > kMostObjects)
            return std::nullopt;
        for (qint64 i = 0; i < *count; ++i) {
            const std::optional<qint64> at = IntegerOf(walker.Token());
            const std::optional<qint64> generation = IntegerOf(walker.Token());
            const QByteArrayView kind = walker.Token();
            if (!at || !generation || (kind != "n" && kind != "f"))
                return std::nullopt;
            freeNumber_ = std::max(freeNumber_, *first + i + 1);
            if (!places_.contains(*first + i))
                places_.insert(*first + i, kind == "n" ? PlaceOf{*at, *generation} : PlaceOf{-1, *generation});
        }
    }
}

QByteArray CPdfFile::Object(PdfReference object)
{
    const auto known = places_.constFind(object.number);
    if (known == places_.cend() || known->place < 0 || known->generation != object.generation)
        return {};
    for (qint64 most = 4096; most <= kLongestObject; most *= 8) {
        const QByteArray bytes = BytesAt(known->place, most);
        const std::optional<ObjectHead> head = HeadOf(bytes);
        if (!head || head->number != object.number || head->generation != object.generation)
            return {};
        Walker walker(bytes);
        walker.GoTo(head->end);
        const QByteArrayView value = walker.Value();
        const QByteArrayView behind = walker.Token();
        if (!value.isEmpty() && (behind == "endobj" || behind == "stream"))
            return value.toByteArray();
        if (bytes.size() < most)
            return {}; // the file ends here
    }
    return {};
}

std::optional<QRectF> CPdfFile::BoxOf(const QByteArray& value)
{
    const std::optional<PdfReference> elsewhere = ReadPdfReference(value);
    const std::optional<QList<QByteArray>> numbers = ReadPdfArray(elsewhere ? Object(*elsewhere) : value);
    if (!numbers || numbers->size() != 4)
        return std::nullopt;
    double sides[4] = {};
    for (int i = 0; i < 4; ++i) {
        bool isNumber = false;
        sides[i] = numbers->at(i).toDouble(&isNumber);
        if (!isNumber)
            return std::nullopt;
    }
    return QRectF(QPointF(sides[0], sides[1]), QPointF(sides[2], sides[3])).normalized();
}

bool CPdfFile::ReadPages(PdfReference node, const Inherited& above)
{
    const std::optional<CPdfDictionary> dictionary = CPdfDictionary::Read(Object(node));
    if (!dictionary || above.depth > kDeepest || ++nodes_ > kMostObjects || nodes_ > places_.size())
        return false; // more than there are: a circle
    const QByteArray own = dictionary->Value("/MediaBox");
    const QByteArray box = own.isEmpty() ? above.box : own;
    if (dictionary->Value("/Type") == "/Page") {
        const std::optional<QRectF> place = BoxOf(box);
        if (place)
            pages_.append({node, *place});
        return place.has_value();
    }
    const QByteArray value = dictionary->Value("/Kids");
    const std::optional<PdfReference> elsewhere = ReadPdfReference(value);
    const std::optional<QList<QByteArray>> kids = ReadPdfArray(elsewhere ? Object(*elsewhere) : value);
    return kids && std::ranges::all_of(*kids, [&](const QByteArray& kid) {
               const std::optional<PdfReference> child = ReadPdfReference(kid);
               return child && ReadPages(*child, {box, above.depth + 1});
           });
}

} // namespace sbd

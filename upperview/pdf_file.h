// What of a PDF has to be known to add to it: its objects and its pages. Reads tables of objects as text, of any number of
// updates; tables and objects in compressed streams are another form.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QHash>
#include <QList>
#include <QRectF>

#include <optional>
#include <utility>

class QIODevice;

namespace sbd {

/// An object's number and generation.
struct PdfReference {
    qint64 number = 0;
    qint64 generation = 0;
    [[nodiscard]] QByteArray Text() const
    {
        return QByteArray::number(number) + ' ' + QByteArray::number(generation) + " R";
    }
};

/// A dictionary's entries in their order: names with their slash, values as they stand.
class CPdfDictionary {
public:
    /// Nothing if the text does not begin with a whole dictionary.
    [[nodiscard]] static std::optional<CPdfDictionary> Read(QByteArrayView text);

    [[nodiscard]] QByteArray Value(QByteArrayView name) const; ///< empty: there is none
    [[nodiscard]] std::optional<qint64> Integer(QByteArrayView name) const;
    [[nodiscard]] std::optional<PdfReference> Reference(QByteArrayView name) const;
    void Set(const QByteArray& name, const QByteArray& value);
    [[nodiscard]] QByteArray Text() const;

private:
    QList<std::pair<QByteArray, QByteArray>> entries_;
};

/// The elements of an array as they stand, a reference as one of them; nothing if the text does not begin with a whole one.
[[nodiscard]] std::optional<QList<QByteArray>> ReadPdfArray(QByteArrayView text);
/// "12 0 R"; nothing if the text is anything else.
[[nodiscard]] std::optional<PdfReference> ReadPdfReference(QByteArrayView text);

struct PdfPage {
    PdfReference object;
    QRectF box; ///< points, y upward
};

class CPdfFile {
public:
    enum class State {
        Read,
        NotWhole,    ///< its end is missing
        UnknownForm, ///< it is of a form that is not read, or broken
    };

    /// Reads the tables and the pages; the device must outlive it and stay as it is.
    explicit CPdfFile(QIODevice& pdf);

    [[nodiscard]] State GetState() const { return state_; }
    [[nodiscard]] const QList<PdfPage>& Pages() const { return pages_; }
    [[nodiscard]] const CPdfDictionary& Trailer() const { return trailer_; }
    /// The first number that no object has.
    [[nodiscard]] qint64 FreeNumber() const { return freeNumber_; }
    /// Where the last table of objects stands.
    [[nodiscard]] qint64 Table() const { return table_; }

    /// What stands between "obj" and "endobj", a stream left out; empty: there is no such object.
    [[nodiscard]] QByteArray Object(PdfReference object);

private:
    struct PlaceOf {
        qint64 place = 0;
        qint64 generation = 0;
    };
    /// What a page has of the groups above it.
    struct Inherited {
        QByteArray box;
        int depth = 0;
    };

    [[nodiscard]] QByteArray BytesAt(qint64 place, qint64 count);
    [[nodiscard]] State Read();
    [[nodiscard]] bool ReadTables();
    [[nodiscard]] std::optional<CPdfDictionary> ReadTable(qint64 place);
    [[nodiscard]] bool ReadPages(PdfReference node, const Inherited& above);
    [[nodiscard]] std::optional<QRectF> BoxOf(const QByteArray& value);

    QIODevice& pdf_;
    State state_ = State::UnknownForm;
    qint64 table_ = 0;
    qint64 freeNumber_ = 0;
    CPdfDictionary trailer_;
    QHash<qint64, PlaceOf> places_;
    QList<PdfPage> pages_;
    qint64 nodes_ = 0; // of the page tree, so far
};

} // namespace sbd

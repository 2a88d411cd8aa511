// Reads a PDF in a test, on its own and without the code that wrote it.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

namespace sbd {

/// Reads a PDF as a viewer does: by the table at its end, and by those that it says it stands on.
class PdfReader {
public:
    explicit PdfReader(QByteArray bytes) : bytes_(std::move(bytes))
    {
        qint64 table =
            bytes_.mid(bytes_.lastIndexOf("startxref") + 9).trimmed().split('\n').value(0).trimmed().toLongLong();
        while (table > 0) {
            const QByteArray behind = bytes_.mid(table);
            const qsizetype from = behind.indexOf("trailer");
            const QByteArray trailer = behind.mid(from, behind.indexOf("startxref", from) - from);
            if (root_ == 0)
                root_ = Number(trailer, "/Root");
            const QList<QByteArray> lines = behind.left(behind.indexOf("trailer")).split('\n');
            for (qsizetype i = 1; i < lines.size();) {
                const QList<QByteArray> head = lines[i++].simplified().split(' ');
                for (qint64 k = 0; head.size() == 2 && k < head[1].toLongLong(); ++k, ++i)
                    if (!places_.contains(head[0].toLongLong() + k))
                        places_[head[0].toLongLong() + k] = lines.value(i).left(10).toLongLong();
            }
            table = Number(trailer, "/Prev");
        }
    }

    [[nodiscard]] static qint64 Number(const QByteArray& text, const QByteArray& word)
    {
        const qsizetype at = text.indexOf(word + ' ');
        return at < 0 ? 0 : text.mid(at + word.size() + 1).simplified().split(' ').value(0).toLongLong();
    }
    [[nodiscard]] QByteArray Object(qint64 number) const
    {
        const QByteArray text = bytes_.mid(places_.value(number));
        return text.startsWith(QByteArray::number(number) + " 0 obj") ? text.left(text.indexOf("endobj"))
                                                                      : QByteArray();
    }
    [[nodiscard]] qint64 Root() const { return root_; }
    [[nodiscard]] QList<qint64> Pages() const
    {
        const QByteArray tree = Object(Number(Object(root_), "/Pages"));
        QList<qint64> pages;
        for (const QByteArray& word : tree.mid(tree.indexOf('[') + 1).split(']').value(0).simplified().split('R'))
            if (!word.trimmed().isEmpty())
                pages << word.trimmed().split(' ').value(0).toLongLong();
        return pages;
    }

    struct Line {
        QString title;
        qsizetype page = -1;
        int level = 0;
    };
    [[nodiscard]] QList<Line> Outline() const
    {
        QList<Line> lines;
        Collect(Number(Object(Number(Object(root_), "/Outlines")), "/First"), 0, lines);
        return lines;
    }

private:
    void Collect(qint64 item, int level, QList<Line>& lines) const
    {
        for (int guard = 0; item > 0 && guard < 10'000; ++guard) {
            const QByteArray object = Object(item);
            const QByteArray hex = object.mid(object.indexOf("<FEFF") + 5).split('>').value(0);
            QString title;
            for (qsizetype i = 0; i + 3 < hex.size(); i += 4)
                title += QChar(hex.mid(i, 4).toUShort(nullptr, 16));
            const QByteArray dest = object.mid(object.indexOf("/Dest [") + 7).split(' ').value(0);
            lines << Line{title, Pages().indexOf(dest.toLongLong()), level};
            Collect(Number(object, "/First"), level + 1, lines);
            item = Number(object, "/Next");
        }
    }

    QByteArray bytes_;
    QHash<qint64, qint64> places_;
    qint64 root_ = 0;
};

} // namespace sbd

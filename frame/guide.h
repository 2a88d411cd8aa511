// The guide "はじめての橋": its steps as they stand in frame/guide/first_bridge.txt, for the window, the docs and the test.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace sbd {

/// Cells to type, each row by its number in the grid.
struct GuideTable {
    struct Row {
        int row = 0;
        QStringList cells; ///< "=" before one: it is there already; an empty one is left alone
    };
    int block = 0;
    QStringList heads;
    QList<Row> rows;
};

/// What is read: a line of text, or a table.
struct GuideLine {
    enum class Kind { Do, See, Note, Table };
    Kind kind = Kind::Do;
    QString text;
    GuideTable table;
};

/// What the test does; "table" types the next table of the step.
struct GuideAct {
    QString verb;
    QString what;
};

struct GuideStep {
    QString name; ///< of its picture too
    QString title;
    QList<GuideLine> lines;
    QList<GuideAct> acts;
};

struct Guide {
    QString title;
    QStringList intro;
    QList<GuideStep> steps;
    QStringList faults; ///< lines that were not understood, each with its number
};

/// Reads a guide; the form stands at the head of first_bridge.txt.
[[nodiscard]] Guide ReadGuide(const QByteArray& text);
/// The one that is built in.
[[nodiscard]] const Guide& FirstBridge();

/// True for a cell of a table that is there already, or left alone; false: it is typed.
[[nodiscard]] bool IsGiven(const QString& cell);
/// The text of a cell without its mark.
[[nodiscard]] QString CellText(const QString& cell);

/// The guide as a page of a text browser, whose pictures are "NAME.png".
[[nodiscard]] QString GuideHtml(const Guide& guide);
/// The guide as Markdown; its pictures are in `folder`.
[[nodiscard]] QString GuideMarkdown(const Guide& guide, const QString& folder);

/// Copies the files to practise with (analysis input and results) into a new folder in `place`, and gives its path;
/// empty: it could not be done, and nothing is left of it.
[[nodiscard]] QString MakePracticeFolder(const QString& place);

} // namespace sbd

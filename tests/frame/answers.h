// A user whose answers are known beforehand, and copies of the examples to work on.
#pragma once

#include "frame/prompts.h"
#include "tests/surroundings.h"

#include <QFile>
#include <QSettings>
#include <QStringList>
#include <QTemporaryDir>

namespace sbd {

/// What the user will answer, and what was asked and told.
struct Answers {
    QString openFile;
    QString saveFile;
    SaveAnswer save = SaveAnswer::Cancel;
    QList<bool> yes; ///< answers to the questions in their order; no after the last
    StartChoice start;
    QString newProjectFile;
    std::function<bool(BoxWebNames&)> boxWebs = [](BoxWebNames&) { return true; };
    RecoveryAnswer recovery = RecoveryAnswer::Later;
    QString engines;                      ///< folder of the engines
    QList<ChangedFileAnswer> changedFile; ///< cancel after the last
    std::function<void(const DifferenceView&)> withDifferences;
    std::function<void(const KeptInputsView&)> withKept;
    TablePrompts tables = SilentTablePrompts();
    std::optional<BookChoice> book;
    std::optional<CompareChoice> comparison;
    QString reportFile;
    QString practicePlace;

    QString proposal;    ///< name the save dialog began with
    QStringList filters; ///< of the dialog for a new project's file
    QStringList asked;
    QStringList warned;
    QList<bool> putOff; ///< of the questions about copies: "later" is the answer to begin with
    QList<DifferenceView> shown;
    QList<KeptInput> kept;
    BookSource bookSource;
    CompareSource compareSource;

    [[nodiscard]] Prompts Dialogs()
    {
        Prompts prompts = SilentPrompts([this](const QString& text) { warned.append(text); });
        prompts.openFileName = [this](QWidget*, const QString&) { return openFile; };
        prompts.saveFileName = [this](QWidget*, const QString& name) {
            proposal = name;
            return saveFile;
        };
        prompts.ask = [this](QWidget*, const QString& text) {
            asked.append(text);
            return save;
        };
        prompts.askYesNo = [this](QWidget*, const QString& text) {
            asked.append(text);
            return !yes.isEmpty() && yes.takeFirst();
        };
        prompts.chooseStart = [this](QWidget*) { return start; };
        prompts.openNewProjectFile = [this](QWidget*, const QString&, const QStringList& offered) {
            filters = offered;
            return newProjectFile;
        };
        prompts.chooseFolder = [this](QWidget*, const QString&) { return practicePlace; };
        prompts.showBoxWebs = [this](QWidget*, BoxWebNames& names) { return boxWebs(names); };
        prompts.askRecovery = [this](QWidget*, const RecoveryQuestion& question) {
            asked.append(question.text);
            putOff.append(question.putOff);
            return recovery;
        };
        prompts.askChangedFile = [this](QWidget*, const QString& text) {
            asked.append(text);
            return changedFile.isEmpty() ? ChangedFileAnswer::Cancel : changedFile.takeFirst();
        };
        prompts.showDifferences = [this](QWidget*, const DifferenceView& view) {
            shown.append(view);
            if (withDifferences)
                withDifferences(view);
        };
        prompts.showKeptInputs = [this](QWidget*, const KeptInputsView& view) {
            kept = view.inputs;
            if (withKept)
                withKept(view);
        };
        prompts.tables.openName = [this](QWidget* parent, const QString& folder) {
            return tables.openName(parent, folder);
        };
        prompts.tables.saveName = [this](QWidget* parent, const QString& name) {
            proposal = name;
            return tables.saveName(parent, name);
        };
        prompts.tables.chooseImport = [this](QWidget* parent, const ImportView& view) {
            return tables.chooseImport(parent, view);
        };
        prompts.tables.chooseExport = [this](QWidget* parent, const QString& block) {
            return tables.chooseExport(parent, block);
        };
        prompts.chooseBook = [this](QWidget*, const BookSource& source) {
            bookSource = source;
            return book;
        };
        prompts.chooseComparison = [this](QWidget*, const CompareSource& source) {
            compareSource = source;
            return comparison;
        };
        prompts.saveReportName = [this](QWidget*, const QString& name, const QStringList&) {
            proposal = name;
            return reportFile;
        };
        prompts.runs.askYesNo = prompts.askYesNo;
        prompts.runs.askOkCancel = prompts.askYesNo;
        prompts.runs.programFolder = [this] { return engines; };
        prompts.runs.runEngine = RunEngineProcess;
        return prompts;
    }
};

/// A folder for one test, and the profile in it.
class TestFolder {
public:
    TestFolder()
    {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder_.filePath(QStringLiteral("profile")));
    }

    [[nodiscard]] QString Path(const QString& name) const { return folder_.filePath(name); }

    /// A writable copy of an example project with its *.abd file; its path.
    [[nodiscard]] QString Example(const QString& name, const QString& as = {}) const
    {
        const QString base = QString::fromUtf8(test::ExamplesFolder()) + u'/' + name + u'/' + name;
        const QString copy = Path(as.isEmpty() ? name : as);
        for (const QString& extension : {QStringLiteral(".sbd"), QStringLiteral(".abd")}) {
            QFile::copy(base + extension, copy + extension);
            QFile::setPermissions(copy + extension, QFile::ReadOwner | QFile::WriteOwner);
        }
        return copy + QStringLiteral(".sbd");
    }

private:
    QTemporaryDir folder_;
};

[[nodiscard]] inline QByteArray Bytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace sbd

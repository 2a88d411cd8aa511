// The table of the ends of a run: each end is made by a real engine, and what the window says of it is looked at. With
// SBD_PICTURES=FOLDER each one is also painted into a file there.
#include "document/project_lock.h"
#include "frame/notice_bar.h"
#include "life_station.h"
#include "tests/surroundings.h"
#include "upperview/chk_view.h"
#include "upperview/up_view.h"

#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>

#include <algorithm>

using namespace sbd;

namespace {

/// The program's window and a user who looks at boxes before closing them.
struct EndsDesk {
    TestFolder folder;
    Answers user;
    QString name;     ///< of the pictures
    QStringList told; ///< boxes
    CMainFrame frame{Dialogs()};
    CChildFrame* child = nullptr;
    QString path = folder.Example(u"plate4"_s, u"橋 1"_s);

    explicit EndsDesk(QString of) : name(std::move(of))
    {
        user.engines = QString::fromUtf8(test::EngineFolder());
        frame.resize(1280, 800);
        frame.show();
        frame.OfferRecoveryCopies();
        child = frame.OpenProject(path);
    }

    /// What the next engines do. Reports are CP932.
    void Engine(const QString& verbs) const
    {
        QFile file(folder.Path(u"橋 1.engine"_s));
        QVERIFY(file.open(QFile::WriteOnly));
        file.write(QByteArray::fromStdString(fromQString(verbs).value()));
    }
    void Run(Command command)
    {
        frame.RunCommand(command);
        QApplication::processEvents();
        child->GoToBlock(255);
        QApplication::processEvents();
    }

    /// The window as it stands, with the box over it if there is one.
    void Take(const QString& what)
    {
        const QString to = qEnvironmentVariable("SBD_PICTURES");
        if (to.isEmpty())
            return;
        QApplication::processEvents();
        QPixmap picture = frame.grab();
        if (QWidget* box = QApplication::activeModalWidget()) {
            const QPixmap over = box->grab();
            QPainter painter(&picture);
            const QPoint at((picture.width() - over.width()) / 2, (picture.height() - over.height()) / 2);
            painter.drawPixmap(at, over);
            painter.drawRect(QRect(at, over.size()).adjusted(-1, -1, 0, 0));
        }
        QDir().mkpath(to);
        QVERIFY(picture.save(QDir(to).filePath(name + what + u".png"_s)));
    }

    /// The first line of the page of 255.
    [[nodiscard]] QString PageLine() const
    {
        const std::vector<ChkLine> lines = child->UpView().Chk().Lines();
        return lines.empty() ? QString() : toQString(lines[0].text);
    }
    [[nodiscard]] bool Says(const QString& text) const
    {
        const QStringList texts = child->Notices().Texts();
        return std::ranges::any_of(texts, [&text](const QString& notice) { return notice.contains(text); });
    }

    /// Presses a button of what stands in front once it is there.
    void PressSoon(const QString& text, const QString& picture)
    {
        QTimer::singleShot(200, &frame, [=, this] {
            QWidget* box = QApplication::activeModalWidget();
            for (QPushButton* button : box == nullptr ? QList<QPushButton*>() : box->findChildren<QPushButton*>()) {
                if (button->text().startsWith(text)) {
                    Take(picture);
                    button->click();
                    return;
                }
            }
            PressSoon(text, picture);
        });
    }

private:
    [[nodiscard]] Prompts Dialogs()
    {
        Prompts prompts = user.Dialogs();
        prompts.runs.tell = [this](QWidget* parent, const QString& text) {
            told += text;
            PressSoon(u"OK"_s, u"-box"_s);
            ScreenRunSeams().tell(parent, text);
        };
        return prompts;
    }
};

} // namespace

class RunEndsJourneyTest : public QObject {
    Q_OBJECT

private slots:
    void init() { RemoveAllCopies(); }

    void eachEndIsTold_data();
    void eachEndIsTold();
    void aRunUnderWayIsShownAndCancelled();
    void anEngineThatIsNotThereIsTold();
    void aHeldFileIsToldAndReadWhenItIsFree();
    void whatACheckDidNotSeeIsTold();
    void theEndStandsOnThePageWhenTheProjectIsOpenedAgain();
    void twoWaysBackSayWhereTo();
    void aProjectThatAnEngineHasRemovedIsNotLetGo();
};

void RunEndsJourneyTest::eachEndIsTold_data()
{
    QTest::addColumn<QString>("verbs");
    QTest::addColumn<QString>("onPage");
    QTest::addColumn<QString>("notice"); // empty: none
    QTest::addColumn<QString>("box");
    QTest::newRow("01-report") << u"chk Warning: [313] 1行目\nchk Error: [313] 2行目\nchk Error: [314] 1行目\n"_s
                               << u"終了 (報告あり)　エラー 2 件、警告 1 件"_s << QString() << QString();
    QTest::newRow("02-no-report") << u"\n"_s << u"終了 (報告なし)"_s << QString() << QString();
    QTest::newRow("03-exit-code") << u"chk half of a report\nexit 7\n"_s << u"異常終了 (終了コード 7)"_s
                                  << u"プロジェクトファイルは変わっていません。"_s << QString();
    QTest::newRow("04-fault") << u"value RESET_RESULTS NO\ncrash\n"_s << u"異常終了 ("_s
                              << u"プロジェクトファイルは書き換えられています。"_s << QString();
    QTest::newRow("07-broken") << u"truncate 9000\nchk ok\n"_s << u"終了 (報告あり)"_s
                               << u"プロジェクトファイルが壊れているようです。"_s << u"データがなくなったブロック: "_s;
    QTest::newRow("08-gone") << u"delete\n"_s << u"終了 (報告なし)"_s << u"プロジェクトファイルがなくなっています。"_s
                             << u"見つかりません。"_s;
    QTest::newRow("10-changes") << u"value RESET_RESULTS NO\nchk ok\n"_s << u"終了 (報告あり)"_s
                                << u"解析の前と後でデータが違います: 1 個のブロックで、セル 1 個。"_s << QString();
}

void RunEndsJourneyTest::eachEndIsTold()
{
    QFETCH(const QString, verbs);
    QFETCH(const QString, onPage);
    QFETCH(const QString, notice);
    QFETCH(const QString, box);
    EndsDesk desk(QString::fromLatin1(QTest::currentDataTag()));
    desk.Engine(verbs);
    desk.Run(Command::RunAll);
    desk.Take({});
    QVERIFY2(desk.PageLine().contains(onPage), qPrintable(desk.PageLine()));
    QVERIFY2(notice.isEmpty() ? desk.child->Notices().isHidden() : desk.Says(notice),
             qPrintable(desk.child->Notices().Texts().join(u'\n')));
    QCOMPARE(desk.told.size(), box.isEmpty() ? 0 : 1);
    QVERIFY(desk.told.value(0).contains(box));
    QVERIFY(desk.child->Lock().IsHeld() || box.contains(u"見つかりません"_s));
}

void RunEndsJourneyTest::aRunUnderWayIsShownAndCancelled()
{
    EndsDesk desk(u"05-cancelled"_s);
    desk.Engine(u"chk 主桁の計算\nchk 横桁の計算\nvalue RESET_RESULTS NO\nsleep 60000\n"_s);
    QTimer::singleShot(1500, &desk.frame, [&] { desk.PressSoon(u"中止("_s, u"-under-way"_s); });
    QTimer::singleShot(1900, &desk.frame, [&] { desk.PressSoon(u"中止する"_s, u"-question"_s); });
    desk.Run(Command::RunAll);
    desk.Take({});
    QVERIFY2(desk.PageLine().contains(u"解析実行 "_s) && desk.PageLine().contains(u": 中止"_s),
             qPrintable(desk.PageLine()));
    QVERIFY(desk.Says(u"解析プログラムが途中で終わりました: 中止。プロジェクトファイルは書き換えられています。"_s));
    QVERIFY(desk.Says(QDir::toNativeSeparators(KeptInputsOf(desk.path).at(0).file)));
    QVERIFY(desk.child->Lock().IsHeld());
}

void RunEndsJourneyTest::anEngineThatIsNotThereIsTold()
{
    EndsDesk desk(u"06-not-started"_s);
    desk.user.engines = desk.folder.Path(u"no folder"_s);
    desk.Run(Command::RunAll);
    desk.Take({});
    QCOMPARE(desk.told.size(), 1);
    QVERIFY(desk.told[0].contains(u"解析できません．"_s));
    QVERIFY2(desk.PageLine().contains(u"起動できませんでした"_s), qPrintable(desk.PageLine()));
    QVERIFY(KeptInputsOf(desk.path).isEmpty());
    QStringList status;
    for (const QLabel* label : desk.frame.statusBar()->findChildren<QLabel*>())
        status << label->text();
    QVERIFY2(status.contains(u"計算 未完了"_s), qPrintable(status.join(u'|')));
}

void RunEndsJourneyTest::aHeldFileIsToldAndReadWhenItIsFree()
{
    EndsDesk desk(u"09-held"_s);
    desk.Engine(u"value RESET_RESULTS NO\nchk ok\nhold 2500\n"_s);
    desk.Run(Command::RunAll);
    desk.Take({});
    QVERIFY2(desk.PageLine().contains(u"終了後もファイルが使用中"_s), qPrintable(desk.PageLine()));
    QVERIFY(desk.Says(u"まだ使用中か読み取り専用のため、解析後の内容を読み込んでいません。"_s));
    QCOMPARE(desk.child->Doc().Data().Option(301, 1), std::string_view("YES"));
    QTRY_COMPARE_WITH_TIMEOUT(desk.child->Doc().Data().Option(301, 1), std::string_view("NO"), 20000);
    desk.Take(u"-free"_s);
    QVERIFY(!desk.Says(u"まだ使用中"_s));
    QVERIFY(desk.child->Lock().IsHeld());
}

void RunEndsJourneyTest::whatACheckDidNotSeeIsTold()
{
    EndsDesk desk(u"11-check"_s);
    Enter(*desk.child, "BRIDGE OF TODAY");
    desk.Engine(u"chk Error = 0\n"_s);
    desk.Run(Command::CheckData);
    desk.child->GoToBlock(254);
    desk.Take({});
    QVERIFY2(desk.PageLine().contains(u"データのチェック "_s) && desk.PageLine().contains(u"エラー 0 件"_s),
             qPrintable(desk.PageLine()));
    QVERIFY(desk.Says(u"保存していなかった変更が画面から消えました"_s));
}

void RunEndsJourneyTest::theEndStandsOnThePageWhenTheProjectIsOpenedAgain()
{
    EndsDesk desk(u"12-opened-again"_s);
    desk.Engine(u"chk half of a report\nexit 7\n"_s);
    desk.Run(Command::RunAll);
    const QString line = desk.PageLine();
    QVERIFY2(line.contains(u"終了コード 7"_s), qPrintable(line));
    desk.child->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    desk.child = desk.frame.OpenProject(desk.path);
    desk.child->GoToBlock(255);
    desk.Take({});
    QCOMPARE(desk.PageLine(), line);
    // Under another name it is another project, whose run nobody knows.
    desk.user.saveFile = desk.folder.Path(u"other.sbd"_s);
    desk.frame.RunCommand(Command::SaveAs);
    QCOMPARE(desk.child->Doc().PathName(), desk.user.saveFile);
    QVERIFY2(!desk.PageLine().contains(u"終了コード 7"_s), qPrintable(desk.PageLine()));
}

void RunEndsJourneyTest::twoWaysBackSayWhereTo()
{
    EndsDesk desk(u"13-ways-back"_s);
    Enter(*desk.child, "BRIDGE OF TODAY");
    desk.Engine(u"value RESET_RESULTS NO\ncrash\n"_s);
    desk.Run(Command::CheckData);
    desk.Take({});
    QStringList ways;
    for (const QPushButton* button : desk.child->Notices().findChildren<QPushButton*>()) {
        if (button->text().startsWith(u"元に戻す"_s) && button->isVisible())
            ways += button->text();
    }
    ways.sort();
    QCOMPARE(ways, QStringList({u"元に戻す: 保存していなかった入力(&R)"_s, u"元に戻す: 解析での変更(&U)"_s,
                                u"元に戻す: 解析前の入力(&B)"_s}));
}

void RunEndsJourneyTest::aProjectThatAnEngineHasRemovedIsNotLetGo()
{
    EndsDesk desk(u"08-gone-"_s);
    const QByteArray before = Bytes(desk.path);
    desk.Engine(u"delete\n"_s);
    desk.Run(Command::RunAll);
    QVERIFY(!QFile::exists(desk.path));
    QVERIFY(desk.child->Doc().IsModified());
    desk.user.save = SaveAnswer::Cancel;
    QVERIFY(!desk.child->close());
    QCOMPARE(desk.user.asked.size(), 1);
    desk.user.save = SaveAnswer::Discard; // without a look
    QVERIFY(desk.child->close());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // The project cannot be opened, but its input is named.
    desk.child = desk.frame.OpenProject(desk.path);
    QVERIFY(desk.child == nullptr);
    const QList<KeptInput> inputs = KeptInputsOf(desk.path);
    QCOMPARE(inputs.size(), 1);
    QCOMPARE(Bytes(inputs[0].file), before);
    QVERIFY2(desk.user.warned.value(0).contains(QDir::toNativeSeparators(inputs[0].file)),
             qPrintable(desk.user.warned.join(u'\n')));
}

QTEST_MAIN(RunEndsJourneyTest)
#include "run_ends_journey_test.moc"

#include "document/broken_file.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

std::string Example(const QString& name)
{
    QFile file(QStringLiteral(EXAMPLES_DIR) + u'/' + name + u'/' + name + u".sbd"_s);
    return file.open(QFile::ReadOnly) ? file.readAll().toStdString() : std::string();
}

} // namespace

class BrokenFileTest : public QObject {
    Q_OBJECT

private slots:
    void whatAnEngineChangesIsNotBroken();
    void brokenFilesAreFound_data();
    void brokenFilesAreFound();
    void faultsOfBeforeDoNotCount();
    void nothingIsLostWhereNothingWas();
    void everyLargeCutIsFound();
};

void BrokenFileTest::whatAnEngineChangesIsNotBroken()
{
    for (const QString& name : {u"plate4"_s, u"box2"_s, u"single1"_s}) {
        const std::string before = Example(name);
        QVERIFY(!before.empty());
        QVERIFY(!LooksBroken(before, before));
        std::string changed = before;
        changed.replace(changed.find(" YES\r\n"), 4, " NO");
        QVERIFY(!LooksBroken(before, changed));
        QVERIFY(!LooksBroken(before, before + "[NEW_SECTION] 999\r\n  1 2 3\r\n[END NEW_SECTION]\r\n\r\n"));
        const std::size_t last = before.rfind("[MBD_CONTROL]");
        QVERIFY(!LooksBroken(before, before.substr(0, last))); // a section less
    }
}

void BrokenFileTest::brokenFilesAreFound_data()
{
    QTest::addColumn<QByteArray>("after");
    const std::string before = Example(u"plate4"_s);
    const auto row = [](const char* name, const std::string& after) {
        QTest::newRow(name) << QByteArray::fromStdString(after);
    };
    row("empty", {});
    row("title alone", before.substr(0, before.find("[SEC_CONTROL]")));
    row("half", before.substr(0, before.size() / 2 - 1));
    row("cut inside the last section", before.substr(0, before.size() - 100));
    row("zero bytes", before.substr(0, before.size() - 600) + std::string(600, '\0'));
    row("all zero", std::string(before.size(), '\0'));
    row("text of another kind", std::string(before.size(), 'x'));
    row("lines between sections", before + "\r\nforrtl: severe (59): list-directed I/O syntax error\r\n");
    std::string unknown = before;
    for (std::size_t pos = 0; (pos = unknown.find('[', pos)) != std::string::npos; pos += 2)
        unknown.insert(pos + 1, "?");
    row("no section of a known name", unknown);
}

void BrokenFileTest::brokenFilesAreFound()
{
    QFETCH(const QByteArray, after);
    QVERIFY(LooksBroken(Example(u"plate4"_s), after.toStdString()));
}

void BrokenFileTest::faultsOfBeforeDoNotCount()
{
    const std::string example = Example(u"plate4"_s);
    const std::string outside = "outside\r\n" + example;
    QVERIFY(!LooksBroken(outside, outside + "[NEW]\r\n[END]\r\n"));
    const std::string open = example.substr(0, example.size() - 100);
    QVERIFY(!LooksBroken(open, open + "\r\n  MORE  1\r\n"));
    const std::string zero = example + std::string(3, '\0');
    QVERIFY(!LooksBroken(zero, "\r\n" + zero));
}

void BrokenFileTest::nothingIsLostWhereNothingWas()
{
    QVERIFY(!LooksBroken({}, {}));
    QVERIFY(!LooksBroken({}, Example(u"plate4"_s)));
    QVERIFY(!LooksBroken("rubbish", {}));
}

void BrokenFileTest::everyLargeCutIsFound()
{
    const std::string before = Example(u"box2"_s);
    for (std::size_t size = 0; size < before.size() / 2; size += 997)
        QVERIFY2(LooksBroken(before, before.substr(0, size)), std::to_string(size).c_str());
}

QTEST_GUILESS_MAIN(BrokenFileTest)
#include "broken_file_test.moc"

#include "frame/command_icon.h"
#include "frame/language.h"
#include "panels/command_text.h"
#include "project/sbd_data.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QSet>
#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

QString Text(std::string_view text)
{
    return CommandWords(text);
}

/// All commands of a menu and the menus below it.
void CollectCommands(std::span<const MenuItem> items, QList<Command>& commands)
{
    for (const MenuItem& item : items) {
        if (const Command* command = std::get_if<Command>(&item); command != nullptr && *command != kSeparator)
            commands.append(*command);
        else if (const MenuId* menu = std::get_if<MenuId>(&item))
            CollectCommands(MenuOf(*menu).items, commands);
    }
}

QList<Command> CommandsIn(MenuId menu)
{
    QList<Command> commands;
    CollectCommands(MenuOf(menu).items, commands);
    return commands;
}

/// The letter behind "&"; null if there is none.
QChar LetterOf(std::string_view text)
{
    const QString entry = EntryText(text).replace(u"&&"_s, QString());
    const qsizetype at = entry.indexOf(u'&');
    return at < 0 ? QChar() : entry[at + 1].toUpper();
}

/// How many pixels of an icon have ink, and the colour of the strongest.
struct Ink {
    int pixels = 0;
    QColor color;
};

Ink InkOf(const QIcon& icon, int size, qreal ratio, QIcon::Mode mode = QIcon::Normal)
{
    const QImage image = icon.pixmap(QSize(size, size), ratio, mode).toImage();
    Ink ink;
    int most = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            ink.pixels += pixel.alpha() > 60 ? 1 : 0;
            if (pixel.alpha() > most) {
                most = pixel.alpha();
                ink.color = pixel;
            }
        }
    }
    return ink;
}

} // namespace

class CommandsTest : public QObject {
    Q_OBJECT

private slots:
    void everyCommandCanBeReachedByMenus();
    void noTwoCommandsShareAKey();
    void everyKeyIsAKey();
    void theKeysAreThoseOfTheProgram();
    void everyToolBarButtonHasAnIconAndATip();
    void tipsStandAsTheyAre();
    void theRunMenuStandsAsItIs();
    void theFilterAndModeEntriesStandAsTheyAre();
    void theDocumentsStandInTheHelpMenu();
    void theVersionIsTheNinthEntryOfTheMenuBar();
    void lettersOfAMenuAreItsOwn();
    void anAmpersandThatMarksNoLetterIsShown();
    void keysOfTheGridAreTextInTheMenu();
    void aTipNamesItsKey();
    void iconsAreDrawnAtEverySizeAndRatio();
    void iconsAreSharpInMenusAndToolBarsAtEveryScale();
    void otherSizesAreMadeFromTheNextLargerOne();
    void iconsFollowThePalette();
    void anIconThatIsNotThereIsNull();
    void noTwoIconsLookAlike();
    void languagesHaveTheirCommandsAndWords();
    void titlesOfTheDataMenuFollowTheTree();
};

void CommandsTest::everyCommandCanBeReachedByMenus()
{
    QList<Command> commands;
    CollectCommands(MenuBarItems(), commands);
    for (const CommandRow& row : CommandTable()) {
        // The search panel's own command stands in its menu.
        const qsizetype expected = row.scope == KeyScope::Search ? 0 : 1;
        QVERIFY2(commands.count(row.command) == expected, qPrintable(Text(row.text)));
    }
}

void CommandsTest::noTwoCommandsShareAKey()
{
    QHash<QString, Command> owners;
    for (const CommandRow& row : CommandTable()) {
        for (const QKeySequence& key : KeysOf(row)) {
            const QString name = key.toString(QKeySequence::PortableText);
            QVERIFY2(!owners.contains(name), qPrintable(name));
            owners.insert(name, row.command);
        }
    }
}

void CommandsTest::everyKeyIsAKey()
{
    for (const CommandRow& row : CommandTable()) {
        const QList<QKeySequence> keys = KeysOf(row);
        QCOMPARE(keys.isEmpty(), row.keys.empty());
        for (const QKeySequence& key : keys) {
            QCOMPARE(key.count(), 1);
            QVERIFY2(key[0].key() != Qt::Key_unknown, qPrintable(Text(row.keys)));
        }
    }
}

void CommandsTest::theKeysAreThoseOfTheProgram()
{
    const auto keys = [](Command id) {
        QStringList names;
        for (const QKeySequence& key : KeysOf(RowOf(id)))
            names.append(key.toString(QKeySequence::PortableText));
        return names.join(u' ');
    };
    QCOMPARE(keys(Command::Copy), u"Ctrl+C Ctrl+Ins"_s);
    QCOMPARE(keys(Command::Cut), u"Ctrl+X"_s);
    QCOMPARE(keys(Command::Delete), u"Del"_s);
    QCOMPARE(keys(Command::Paste), u"Ctrl+V Shift+Ins"_s);
    QCOMPARE(keys(Command::Undo), u"Ctrl+Z Alt+Backspace"_s);
    QCOMPARE(keys(Command::NewProject), u"Ctrl+N"_s);
    QCOMPARE(keys(Command::Open), u"Ctrl+O"_s);
    QCOMPARE(keys(Command::Print), u"Ctrl+P"_s);
    QCOMPARE(keys(Command::Save), u"Ctrl+S"_s);
    QCOMPARE(keys(Command::Search), u"F1"_s);
    QCOMPARE(keys(Command::JumpToHit), u"Ctrl+M"_s);
    QVERIFY(RowOf(Command::Delete).scope == KeyScope::Grid);
}

void CommandsTest::everyToolBarButtonHasAnIconAndATip()
{
    for (const Command id : ToolBarItems()) {
        if (id == kSeparator)
            continue;
        const CommandRow& row = RowOf(id);
        QVERIFY2(!CommandIcon(Text(row.icon)).isNull(), qPrintable(Text(row.text)));
        QVERIFY(!TipOf(row).isEmpty());
    }
}

void CommandsTest::tipsStandAsTheyAre()
{
    const std::pair<Command, QString> tips[] = {
        {Command::RunAll, u"255.解析実行[RUN]"_s},
        {Command::CheckData, u"254.データチェック[CHECK]"_s},
        {Command::RunAndPrint, u"256.解析実行＆出力[RESULT]"_s},
        {Command::ShowCrossResults, u"横桁・対傾構結果画面表示"_s},
        {Command::ShowSupportResults, u"支点補剛材・ダイヤフランム結果画面表示"_s},
        {Command::SwitchFigureAndHelp, u"モデル図　と　ヘルプ　との切り替え"_s},
        {Command::Notes, u"注意事項"_s},
        {Command::ViewXY, u"XY面の表示"_s},
        {Command::ViewYZ, u"YZ面の表示"_s},
        {Command::ViewXZ, u"XZ面の表示"_s},
        {Command::ViewAll, u"全体表示"_s},
        {Command::ZoomOut, u"縮小表示(0.80倍)"_s},
        {Command::ZoomIn, u"拡大表示(1.25倍)"_s},
        {Command::MoveUp, u"上へ移動"_s},
        {Command::MoveDown, u"下へ移動"_s},
        {Command::MoveLeft, u"左へ移動"_s},
        {Command::MoveRight, u"右へ移動"_s},
    };
    for (const auto& [id, tip] : tips)
        QCOMPARE(TipOf(RowOf(id)), tip);
}

void CommandsTest::theRunMenuStandsAsItIs()
{
    QCOMPARE(EntryText(MenuOf(MenuId::Run).title), u"解析&&結果(&A)"_s); // shown as 解析&結果(A)
    const QStringList texts = {
        u"1.実行　　　　　　　　　　　（主桁・横桁・骨組などすべての計算を行います．主桁結果を画面表示）"_s,
        u"2.データをチェック"_s,
        u"3.計算結果出力　　　　　　　（主桁・横桁・骨組などすべての計算を行い，その後出力画面を表示)"_s,
        u"4.横桁･対傾構結果表示; 選択出力 　　　　　　　　 (正しく表示には 1. 実行してから行ってください)"_s,
        u"5.支点補剛材・ダイヤフラム結果表示; 選択出力　　(正しく表示には 1. 実行してから行ってください)"_s,
    };
    const QList<Command> ids = {Command::RunAll, Command::CheckData, Command::RunAndPrint, Command::ShowCrossResults,
                                Command::ShowSupportResults};
    QCOMPARE(CommandsIn(MenuId::Run), ids + QList<Command>{Command::KeptInputs}); // ours stands behind them
    for (qsizetype i = 0; i < ids.size(); ++i)
        QCOMPARE(Text(RowOf(ids[i]).text), texts[i]);
}

void CommandsTest::theFilterAndModeEntriesStandAsTheyAre()
{
    const QList<Command> entries = CommandsIn(MenuId::TreeItems);
    QCOMPARE(entries, (QList<Command>{Command::ShowAllItems, Command::ShowItemsOfProject, Command::ShowUnfilteredItems,
                                      Command::HidePlate, Command::HideBox, Command::HideDrawing, Command::HideCross,
                                      Command::HideLateral, Command::HideFem, Command::HideStringer,
                                      Command::HideBracket, Command::HideSupport}));
    for (const Command id : entries) {
        const CommandRow& row = RowOf(id);
        QCOMPARE(row.mark == CommandMark::Radio, TreeModeOf(id).has_value());
        QCOMPARE(row.needs == CommandNeeds::Filters, TreeFilterOf(id).has_value());
    }
    QCOMPARE(Text(RowOf(Command::ShowAllItems).text), u"すべての項目表示"_s);
    QCOMPARE(Text(RowOf(Command::ShowItemsOfProject).text), u"全項目自動表示（表示しない項目を除く）"_s);
    QCOMPARE(Text(RowOf(Command::ShowUnfilteredItems).text), u"全項目表示（表示しない項目を除く）"_s);
    QCOMPARE(Text(RowOf(Command::HideBox).text), u"箱桁項目表示しない"_s);
    QCOMPARE(Text(RowOf(Command::HideSupport).text), u"700支点補剛材・ダイヤフラム項目表示しない"_s);
}

void CommandsTest::theDocumentsStandInTheHelpMenu()
{
    const QList<Command> entries = CommandsIn(MenuId::Help);
    for (const Command id :
         {Command::GirderDocument, Command::CrossDocument, Command::FemDocument, Command::StringerDocument,
          Command::SupportDocument, Command::QuantityDocument, Command::HomePage, Command::SecondHomePage})
        QVERIFY2(entries.contains(id), qPrintable(Text(RowOf(id).text)));
    QCOMPARE(Text(RowOf(Command::GirderDocument).text), u"300＆４00　主桁自動設計・製図"_s);
    QCOMPARE(Text(RowOf(Command::StringerDocument).text), u"640＆670　縦桁・ブラケットの設計"_s);
    QCOMPARE(Text(RowOf(Command::SecondHomePage).text), u" Homepage..."_s);
}

void CommandsTest::theVersionIsTheNinthEntryOfTheMenuBar()
{
    const auto bar = MenuBarItems();
    QCOMPARE(bar.size(), std::size_t{9});
    QCOMPARE(std::get<Command>(bar[8]), Command::Version);
    QCOMPARE(Text(RowOf(Command::Version).text), u"Ver20110808"_s);
}

void CommandsTest::lettersOfAMenuAreItsOwn()
{
    const auto check = [](std::span<const MenuItem> items) {
        QSet<QChar> letters;
        for (const MenuItem& item : items) {
            std::string_view text;
            if (const Command* command = std::get_if<Command>(&item); command != nullptr && *command != kSeparator)
                text = RowOf(*command).text;
            else if (const MenuId* menu = std::get_if<MenuId>(&item))
                text = MenuOf(*menu).title;
            const QChar letter = LetterOf(text);
            if (letter.isNull())
                continue;
            QVERIFY2(!letters.contains(letter), qPrintable(Text(text)));
            letters.insert(letter);
        }
    };
    check(MenuBarItems());
    for (const MenuId menu : {MenuId::File, MenuId::Edit, MenuId::View, MenuId::Cells, MenuId::TreeItems, MenuId::Run,
                              MenuId::Settings, MenuId::Window, MenuId::Help})
        check(MenuOf(menu).items);
}

void CommandsTest::anAmpersandThatMarksNoLetterIsShown()
{
    QCOMPARE(EntryText("開く(&O)..."), u"開く(&O)..."_s);
    QCOMPARE(EntryText("英語&日本語"), u"英語&&日本語"_s);
    QCOMPARE(EntryText("解析&結果(A)"), u"解析&&結果(A)"_s);
    QCOMPARE(EntryText("999.KELD_検索_Q_&_A"), u"999.KELD_検索_Q_&&_A"_s);
    QCOMPARE(EntryText("&"), u"&&"_s);
    QCOMPARE(EntryText("(&"), u"(&&"_s);
    QCOMPARE(EntryText("&&(&A)&"), u"&&&&(&A)&&"_s);
}

void CommandsTest::keysOfTheGridAreTextInTheMenu()
{
    QCOMPARE(EntryText(RowOf(Command::Cut)), u"切り取り\tCtrl+X"_s);
    QCOMPARE(EntryText(RowOf(Command::NewProject)), u"新規作成(&N)"_s);
    QCOMPARE(EntryText(RowOf(Command::InsertRow)), u"挿入行\tCtrl++"_s);
    QCOMPARE(EntryText(RowOf(Command::AddRows)), u"入力ウィンドウ行数の追加..."_s);
}

void CommandsTest::aTipNamesItsKey()
{
    QCOMPARE(TipOf(RowOf(Command::Open)), u"開く (Ctrl+O)"_s);
    QCOMPARE(TipOf(RowOf(Command::Undo)), u"元に戻す (Ctrl+Z)"_s);
    QCOMPARE(TipOf(RowOf(Command::WordLists)), u"選択リストと直接入力の切り替え"_s);
}

void CommandsTest::iconsAreDrawnAtEverySizeAndRatio()
{
    for (const Command id : ToolBarItems()) {
        if (id == kSeparator)
            continue;
        const QString name = Text(RowOf(id).icon);
        const QIcon icon = CommandIcon(name);
        for (const int size : {16, 24, 32}) {
            for (const qreal ratio : {1.0, 1.5, 2.0}) {
                const QPixmap picture = icon.pixmap(QSize(size, size), ratio);
                QCOMPARE(picture.width(), static_cast<int>(size * ratio));
                QCOMPARE(picture.devicePixelRatio(), ratio);
                const int pixels = InkOf(icon, size, ratio).pixels;
                const int all = picture.width() * picture.height();
                QVERIFY2(pixels > all / 15 && pixels < all * 3 / 4, qPrintable(name));
            }
        }
    }
}

void CommandsTest::iconsAreSharpInMenusAndToolBarsAtEveryScale()
{
    for (const CommandRow& row : CommandTable()) {
        if (row.icon.empty())
            continue;
        const QString name = Text(row.icon);
        for (const int size : {16, 24}) {
            for (const qreal ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0}) {
                const int side = qRound(size * ratio);
                const QImage mask(u":/icons/%1/%2.png"_s.arg(name).arg(side));
                QCOMPARE(mask.size(), QSize(side, side));
                QImage icon = CommandIcon(name).pixmap(QSize(size, size), ratio).toImage();
                icon.setDevicePixelRatio(1);
                QCOMPARE(icon.convertToFormat(QImage::Format_Alpha8), mask.convertToFormat(QImage::Format_Alpha8));
            }
        }
    }
}

void CommandsTest::otherSizesAreMadeFromTheNextLargerOne()
{
    const QIcon icon = CommandIcon(u"save"_s);
    constexpr int largest = 96;
    const double ink = InkOf(icon, largest, 1).pixels / double(largest * largest);
    for (const int size : {1, 7, 17, 50, 71, 200}) {
        QCOMPARE(icon.pixmap(QSize(size, size), 1.0).size(), QSize(size, size));
        const double share = InkOf(icon, size, 1).pixels / double(size * size);
        if (size > 16)
            QVERIFY2(std::abs(share - ink) < 0.12, qPrintable(u"%1: %2, not %3"_s.arg(size).arg(share).arg(ink)));
    }
    QImage wide(90, 40, QImage::Format_ARGB32); // in the middle of what is no square
    wide.fill(Qt::transparent);
    QPainter painter(&wide);
    icon.paint(&painter, wide.rect());
    painter.end();
    QImage middle(40, 40, QImage::Format_ARGB32);
    middle.fill(Qt::transparent);
    QPainter onMiddle(&middle);
    icon.paint(&onMiddle, middle.rect());
    onMiddle.end();
    QCOMPARE(wide.copy(25, 0, 40, 40), middle);
    QVERIFY(icon.pixmap(QSize(0, 16), 1.0).isNull());
}

void CommandsTest::iconsFollowThePalette()
{
    const QPalette before = QApplication::palette();
    const QIcon icon = CommandIcon(u"run"_s);
    for (const QColor& ink : {QColor(10, 20, 30), QColor(240, 241, 242)}) {
        QPalette palette = before;
        palette.setColor(QPalette::ButtonText, ink);
        palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(128, 128, 128));
        QApplication::setPalette(palette);
        QCOMPARE(InkOf(icon, 24, 1).color.rgb(), ink.rgb());
        QCOMPARE(InkOf(icon, 24, 2).color.rgb(), ink.rgb());
        QCOMPARE(InkOf(icon, 24, 1, QIcon::Disabled).color.rgb(), QColor(128, 128, 128).rgb());
    }
    QApplication::setPalette(before);
}

void CommandsTest::anIconThatIsNotThereIsNull()
{
    QVERIFY(CommandIcon(u"nothing"_s).isNull());
    QVERIFY(CommandIcon(QString()).isNull());
}

void CommandsTest::noTwoIconsLookAlike()
{
    QHash<QByteArray, QString> seen;
    for (const CommandRow& row : CommandTable()) {
        if (row.icon.empty())
            continue;
        const QImage image = CommandIcon(Text(row.icon)).pixmap(QSize(24, 24), 1.0).toImage();
        const QByteArray bytes(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
        QVERIFY2(!seen.contains(bytes), qPrintable(Text(row.icon)));
        seen.insert(bytes, Text(row.icon));
    }
    QCOMPARE(seen.size(), 29);
}

void CommandsTest::languagesHaveTheirCommandsAndWords()
{
    QCOMPARE(LanguageModes().size(), std::size_t{3});
    for (const LanguageMode& mode : LanguageModes()) {
        QVERIFY(TitleLanguageOf(mode.word) == mode.language);
        QCOMPARE(LanguageModeOf(mode.command), &mode);
        QCOMPARE(&LanguageModeOf(mode.language), &mode);
        QVERIFY(RowOf(mode.command).mark == CommandMark::Radio);
    }
    QVERIFY(LanguageModeOf(Command::SavePanes) == nullptr);
    QCOMPARE(Text(RowOf(Command::English).text), u"英語"_s);
    QCOMPARE(Text(RowOf(Command::Japanese).text), u"日本語"_s);
    QCOMPARE(Text(RowOf(Command::EnglishAndJapanese).text), u"英語&日本語"_s);
    QVERIFY(LanguageModeOf(Command::English)->language == TitleLanguage::English);
}

void CommandsTest::titlesOfTheDataMenuFollowTheTree()
{
    const CSbdData data;
    const std::string_view menu301 = "301.主桁(床組・断面)_CONTROL[SEC_CONTROL](必要)";
    const auto title = [&](TitleLanguage language, int number, bool group, std::string_view text) {
        TreeView view;
        view.language = language;
        return DataEntryTitle(number, group, text, language, TreeRows(data, view));
    };
    QCOMPARE(title(TitleLanguage::English, 301, false, menu301), u"301.[SEC_CONTROL](必要)"_s);
    QCOMPARE(title(TitleLanguage::Japanese, 301, false, menu301), u"301.主桁_CONTROL(必要)"_s);
    QCOMPARE(title(TitleLanguage::EnglishAndJapanese, 301, false, menu301), u"301.主桁_CONTROL[SEC_CONTROL](必要)"_s);
    QCOMPARE(title(TitleLanguage::Japanese, 640, false, "640..縦桁名定義・縦桁設計基本条件 [STRINGER_NAME_COMMON]"),
             u"640..縦桁名定義・縦桁設計基本条件"_s);
    QCOMPARE(title(TitleLanguage::Japanese, 640, true, "640.縦桁の設計[STRINGER]"),
             u"640.縦桁の設計(644高さは入力必須)"_s);
    // 569 stands in the menu alone, in the language all the same.
    QCOMPARE(title(TitleLanguage::English, 569, false, "569.名[TAG]"), u"569.[TAG]"_s);
    QCOMPARE(title(TitleLanguage::EnglishAndJapanese, 999, false, "999.KELD_検索_Q_&_A"), u"999.KELD_検索_Q_&&_A"_s);
}

QTEST_MAIN(CommandsTest)
#include "commands_test.moc"

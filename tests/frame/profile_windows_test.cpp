// The profile in the registry, below a section that no program of ours has.
#include "frame/profile.h"

#include <QTest>

#include <windows.h>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

constexpr const wchar_t* kRoot = LR"(Software\KELD\KELD section)";
const auto kSection = u"Test of %1"_s.arg(GetCurrentProcessId());

std::wstring KeyOfSection()
{
    return std::wstring(kRoot) + L'\\' + kSection.toStdWString();
}

/// A value of the section: its type and bytes.
std::pair<DWORD, std::vector<BYTE>> Stored(const wchar_t* name)
{
    DWORD type = REG_NONE;
    DWORD size = 0;
    const std::wstring key = KeyOfSection();
    if (RegGetValueW(HKEY_CURRENT_USER, key.c_str(), name, RRF_RT_ANY, &type, nullptr, &size) != ERROR_SUCCESS)
        return {REG_NONE, {}};
    std::vector<BYTE> bytes(size);
    RegGetValueW(HKEY_CURRENT_USER, key.c_str(), name, RRF_RT_ANY, &type, bytes.data(), &size);
    bytes.resize(size);
    return {type, bytes};
}

/// A text with its closing zero, as the registry has it.
std::vector<BYTE> BytesOf(const std::wstring& text)
{
    const auto* begin = reinterpret_cast<const BYTE*>(text.c_str());
    return {begin, begin + (text.size() + 1) * sizeof(wchar_t)};
}

} // namespace

class ProfileWindowsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QSettings::setDefaultFormat(QSettings::NativeFormat); }
    void cleanup()
    {
        RegDeleteTreeW(HKEY_CURRENT_USER, KeyOfSection().c_str());
        QSettings::setDefaultFormat(QSettings::IniFormat);
    }

    void theProfileIsTheUsersKey();
    void aNumberIsANumberOfItsSection();
    void aTextIsATextOfItsSection();
    void whatAnotherProgramWroteIsRead();
    void aValueOfAnotherTypeIsNoHindrance();
};

void ProfileWindowsTest::theProfileIsTheUsersKey()
{
    QCOMPARE(CProfile().fileName(), uR"(\HKEY_CURRENT_USER\Software\KELD\KELD section)"_s);
}

void ProfileWindowsTest::aNumberIsANumberOfItsSection()
{
    CProfile().setValue(kSection + u"/up"_s, 21);
    const auto [type, bytes] = Stored(L"up");
    QCOMPARE(type, DWORD{REG_DWORD});
    QCOMPARE(bytes, (std::vector<BYTE>{21, 0, 0, 0}));
    CProfile().setValue(kSection + u"/up"_s, -19);
    QCOMPARE(Stored(L"up").second, (std::vector<BYTE>{0xED, 0xFF, 0xFF, 0xFF}));
    QCOMPARE(CProfile().value(kSection + u"/up"_s).toInt(), -19);
}

void ProfileWindowsTest::aTextIsATextOfItsSection()
{
    CProfile().setValue(kSection + u"/F"_s, u"ＭＳ ゴシック"_s);
    const auto [type, bytes] = Stored(L"F");
    QCOMPARE(type, DWORD{REG_SZ});
    QCOMPARE(bytes, BytesOf(L"ＭＳ ゴシック"));
    QCOMPARE(CProfile().value(kSection + u"/F"_s).toString(), u"ＭＳ ゴシック"_s);
}

void ProfileWindowsTest::whatAnotherProgramWroteIsRead()
{
    const DWORD number = 18;
    const std::wstring text = L"EnglishAndJapanese";
    const std::wstring key = KeyOfSection();
    QCOMPARE(RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), L"up", REG_DWORD, &number, sizeof number), ERROR_SUCCESS);
    QCOMPARE(RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), L"Language", REG_SZ, text.c_str(),
                             static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))),
             ERROR_SUCCESS);
    QVERIFY(CProfile().contains(kSection + u"/up"_s));
    QCOMPARE(CProfile().value(kSection + u"/up"_s).toInt(), 18);
    QCOMPARE(CProfile().value(kSection + u"/Language"_s).toString(), u"EnglishAndJapanese"_s);
}

void ProfileWindowsTest::aValueOfAnotherTypeIsNoHindrance()
{
    const BYTE bytes[] = {1, 2, 3};
    const std::wstring key = KeyOfSection();
    QCOMPARE(RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), L"up", REG_BINARY, bytes, sizeof bytes), ERROR_SUCCESS);
    QCOMPARE(CProfile().value(kSection + u"/up"_s, 7).toInt(), 0);
    CProfile().setValue(kSection + u"/up"_s, 24);
    QCOMPARE(Stored(L"up").first, DWORD{REG_DWORD});
}

QTEST_GUILESS_MAIN(ProfileWindowsTest)
#include "profile_windows_test.moc"

#include "check/report_place.h"
#include "tests/sbdfile/sections.h"
#include "tests/seed.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace sbd {

namespace {

CSbdData Bridge()
{
    CSbdData data;
    data.gridNames.girderNames = {"G1", "G2", "G3"};
    data.gridNames.swayNames = {"S1", "S2", "C3"};
    for (const auto& row : std::vector<std::vector<std::string_view>>{{"G1", "G2"}, {"G2", "G3"}, {"G3", "X"}})
        data.Table(323)->AppendRow(row);
    return data;
}

/// "block/row/column"; empty: no link.
std::string Place(std::string_view utf8, const CSbdData& data = Bridge())
{
    const std::optional<ReportPlace> place = CReportPlaces(data).PlaceOf(Cp932(utf8));
    return place ? std::to_string(place->block) + "/" + std::to_string(place->row) + "/" + std::to_string(place->column)
                 : std::string();
}

class AnyReport : public RandomTest {};

} // namespace

TEST(ReportPlaces, ABlockIsNamedByItsNumberInBrackets)
{
    EXPECT_EQ(Place("ERROR   [333] 左右突出長が入力されていない横断線があります．  S2"), "333/0/0");
    EXPECT_EQ(Place("[311] 桁高           : OK"), "311/0/0");
    EXPECT_EQ(Place("[323] と [324] が合いません"), "323/0/0");
}

TEST(ReportPlaces, ABlockIsNamedByNumberAndTitle)
{
    EXPECT_EQ(Place("313 垂直補剛材 の入力がありません"), "313/0/0");
    EXPECT_EQ(Place("WARNING: 313.垂直補剛材"), "313/0/0");
    EXPECT_EQ(Place("WARNING: 313．垂直補剛材"), "313/0/0");
    EXPECT_EQ(Place("許容値 313 を超えました"), "");
    EXPECT_EQ(Place("1313 垂直補剛材"), "");
    EXPECT_EQ(Place("P313 垂直補剛材"), "");
}

TEST(ReportPlaces, ABlockIsNamedByItsTag)
{
    EXPECT_EQ(Place("ERROR SEC_GROUP: no rows"), "323/0/0");
    EXPECT_EQ(Place("ERROR [SEC_GROUP] no rows"), "323/0/0");
    EXPECT_EQ(Place("ERROR SEC_GROUPS"), "");
    EXPECT_EQ(Place("ERROR XSEC_GROUP"), "");
}

TEST(ReportPlaces, WhatHasNoPlaceIsNoLink)
{
    for (const char* line : {"", "チェック終了", "***** 解析実行結果  box2 *****", "Error   = 1", "[254] [255]",
                             "[000]", "[998]", "[ 313 ]", "[313", "313]", "[", "]", "G1 S2 5行目", "[3133]", "[X]"})
        EXPECT_EQ(Place(line), "") << line;
}

TEST(ReportPlaces, ARowIsNamedByItsNumberIfTheBlockHasIt)
{
    for (const char* line :
         {"[323] 2行目が不正です", "[323] 行 = 2", "[323] 行=2．", "[323] 行番号：２", "[323] 第2行", "[323] 2 行目"})
        EXPECT_EQ(Place(line), "323/2/0") << line;
    EXPECT_EQ(Place("[323] 2行目 2列目"), "323/2/2");
    EXPECT_EQ(Place("[323] 2行目 90列目"), "323/2/0");
    EXPECT_EQ(Place("[323] 90行目"), "323/0/0");
    EXPECT_EQ(Place("[323] 0行目"), "323/0/0");
    EXPECT_EQ(Place("[323] 2行あります"), "323/0/0"); // a count
    EXPECT_EQ(Place("[323] 行 = 2.5"), "323/0/0");
    EXPECT_EQ(Place("[323] 行 = 99999999999999999999"), "323/0/0");
    EXPECT_EQ(Place("[323] 99999999999999999999行目"), "323/0/0");
}

TEST(ReportPlaces, NamesOfTheBridgeLeadToTheRowThatHoldsMostOfThem)
{
    EXPECT_EQ(Place("[323] G2"), "323/1/2");
    EXPECT_EQ(Place("[323] 「G2」，「G3」"), "323/2/1");
    EXPECT_EQ(Place("[323] X"), "323/0/0"); // no name of the bridge
    EXPECT_EQ(Place("[323] G22"), "323/0/0");
    EXPECT_EQ(Place("[323] S1"), "323/0/0"); // no cell has it
}

TEST(ReportPlaces, AnOptionIsNamedByItsLabel)
{
    EXPECT_EQ(Place("WARNING [801] ボルト長さの丸め方法 が不正です"), "801/16/2");
    EXPECT_EQ(Place("WARNING [801] 何か が不正です"), "801/0/0");
}

TEST(ReportPlaces, TheFirstWordSaysWhatALineWeighs)
{
    const auto weight = [](std::string_view line) { return WeightOfLine(Cp932(line)); };
    for (const char* line : {"ERROR   [333] x", "Error: x", "  error", "*** ERROR x", "エラー：x", "ERROR = x"})
        EXPECT_EQ(weight(line), ReportWeight::Error) << line;
    for (const char* line : {"WARNING [342] x", "　警告 x", "Warning(3)"})
        EXPECT_EQ(weight(line), ReportWeight::Warning) << line;
    for (const char* line : {"", "Error   = 1", "Warning = 0", "Error＝０", "ERRORS", "no error", "[311] : OK", "***"})
        EXPECT_EQ(weight(line), ReportWeight::None) << line;
}

TEST_F(AnyReport, BytesWithoutMeaningDoNoHarmAndTakeNoTime)
{
    const CSbdData data = Bridge();
    CReportPlaces places(data);
    const std::string alphabet =
        Cp932("[]3132. 行列目第=０９G1SEC_GROUP_垂直補剛材\x01\x1b") + std::string("\x81\xff\0\x82", 4);
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 5'000; ++i) {
        std::string line;
        for (std::size_t length = UpTo(200); length > 0; --length)
            line += alphabet[UpTo(alphabet.size() - 1)];
        (void)WeightOfLine(line);
        if (const auto place = places.PlaceOf(line)) {
            EXPECT_GT(place->block, 256);
            EXPECT_TRUE(place->row >= 0 && place->column >= 0);
        }
    }
    for (const char c : {'[', '3', ' ', '=', 'A', '\x82', '\0'})
        (void)places.PlaceOf(std::string(1'000, c));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

} // namespace sbd

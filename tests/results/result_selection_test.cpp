#include "results/result_selection.h"
#include "tests/results/result_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace sbd {

using namespace literals;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(ResultKinds, EveryWordAndComponentIsFoundAgainInCp932)
{
    for (const ResultKindInfo& info : ResultKinds()) {
        EXPECT_EQ(&InfoOf(info.kind), &info);
        EXPECT_EQ(ResultKindOf(KindWord(info.kind)), info.kind);
        for (std::size_t i = 0; i < kNodeComponents; ++i)
            EXPECT_EQ(ComponentOf(info.kind, ComponentWord(info.kind, i)), i);
        EXPECT_LT(info.defaultComponent, kNodeComponents);
    }
    EXPECT_EQ(ResultKindOf("応力"_cp932), std::nullopt);
    EXPECT_EQ(ComponentOf(ResultKind::Reaction, "Uz"), std::nullopt);
}

TEST(ResultChoices, RaisedLoadsAreOfferedForForcesOnly)
{
    AnalysisModel model;
    model.loadCaseNames = {"D", "  -(B-L)max ", "-D"};
    EXPECT_THAT(ChoicesOf(model, ResultKind::Force).loads, ElementsAre("D", "(B-L)max(相反応力考慮)"_cp932, "-D"));
    EXPECT_THAT(ChoicesOf(model, ResultKind::Displacement).loads, ElementsAre("D", "-D"));
    EXPECT_THAT(ChoicesOf(model, ResultKind::Reaction).loads, ElementsAre("D", "-D"));
}

TEST(ResultChoices, WithoutGirdersThereAreNoneAndAll)
{
    EXPECT_THAT(ChoicesOf({}, ResultKind::Force).girders, ElementsAre(NoneWord(), AllWord()));
    EXPECT_THAT(ChoicesOf({}, ResultKind::Force).stations, ElementsAre(NoneWord(), AllWord()));
}

TEST(ShownLoad, GoesThereAndBack)
{
    for (const std::string& load : {"-(B-L)max"_cp932, "(B-L)max"_cp932, "死荷重"_cp932, std::string()})
        EXPECT_EQ(LoadOfShown(ShownLoad(load)), load);
    EXPECT_EQ(LoadOfShown("(B-L) (相反応力考慮)"_cp932), "-(B-L)") << "blanks ahead of the mark go";
    EXPECT_EQ(ShownLoad("-死+雪"_cp932), "-死+雪"_cp932) << "only a bracket makes the raised form";
}

TEST(FirstLoad, BeginsWithAMinusForForcesOnly)
{
    AnalysisModel model;
    for (const char* const begin : {"(B-L", "(A-L", "(死+BL", "(死+AL", "死+雪+群集-最"}) {
        model.loadCaseNames = {"死荷重"_cp932, " " + Cp932(begin) + "x ", "-" + Cp932(begin) + "y"};
        EXPECT_EQ(FirstLoad(model, ResultKind::Reaction), Cp932(begin) + "x") << begin;
        EXPECT_EQ(FirstLoad(model, ResultKind::Force), "-" + Cp932(begin) + "y") << begin;
    }
    model.loadCaseNames = {"死荷重"_cp932};
    EXPECT_EQ(FirstLoad(model, ResultKind::Force), std::nullopt);
}

TEST(FirstUse, ShowsForcesOfTheFirstGirder)
{
    const ResultSelection selection = FirstUseSelection(SmallBridge().model);
    EXPECT_TRUE(selection.panelUsed);
    EXPECT_EQ(selection.kind, ResultKind::Force);
    EXPECT_EQ(selection.load, "-(B-L)最大"_cp932);
    EXPECT_EQ(selection.girder, "G1");
    EXPECT_EQ(selection.station, NoneWord());
    EXPECT_EQ(selection.figureItem, "My");
    EXPECT_FALSE(selection.stationEnabled);
    EXPECT_THAT(selection.offeredNames, ElementsAre("G1-S1", "G1-C1"));
}

TEST(FirstUse, WithoutGirdersShowsAllNames)
{
    AnalysisModel model;
    model.loadCaseNames = {"D"};
    model.elementNames = {"E1", " "};
    const ResultSelection selection = FirstUseSelection(model);
    EXPECT_EQ(selection.girder, NoneWord());
    EXPECT_EQ(selection.station, AllWord());
    EXPECT_EQ(selection.load, "D") << "without one of the usual loads the first is on show";
    EXPECT_THAT(selection.offeredNames, ElementsAre("E1", " "));
    EXPECT_EQ(FirstUseSelection({}).load, "");
}

TEST(SelectKind, ARaisedLoadLosesItsMinus)
{
    const AnalysisModel model = SmallBridge().model;
    ResultSelection selection = FirstUseSelection(model);
    SelectKind(selection, model, ResultKind::Displacement);
    EXPECT_EQ(selection.load, "(B-L)最大"_cp932);
    EXPECT_EQ(selection.figureItem, "Uz");
    EXPECT_THAT(selection.offeredNames, ElementsAre("G1-S1", "G1-C1", "G1-S2")) << "nodes now";
}

TEST(SelectGirder, NoneLetsTheStationFilter)
{
    const AnalysisModel model = SmallBridge().model;
    ResultSelection selection = FirstUseSelection(model);
    SelectGirder(selection, model, NoneWord());
    EXPECT_TRUE(selection.stationEnabled);
    EXPECT_THAT(selection.offeredNames, IsEmpty()) << "the station says none as well";
    SelectStation(selection, model, "S");
    EXPECT_THAT(selection.offeredNames, ElementsAre("S1-G1", "S2-G1"));
    SelectGirder(selection, model, AllWord());
    EXPECT_FALSE(selection.stationEnabled);
    EXPECT_EQ(selection.offeredNames, model.elementNames);
}

namespace {

AnalysisModel TwoGirders()
{
    AnalysisModel model;
    model.loadCaseNames = {"D", "(B-L)max", "-(B-L)max"};
    model.girderNames = {"G1", "G2"};
    model.elementNames = {"G1-S1", "G1-C1", "G2-S1"};
    return model;
}

} // namespace

TEST(KeptSelection, WhatIsStillThereStaysChosen)
{
    const AnalysisModel model = TwoGirders();
    ResultSelection selection = FirstUseSelection(model);
    SelectLoad(selection, "D");
    SelectGirder(selection, model, "G1");
    selection.columnOn[2] = false;
    selection.excludedNames = {"G1-C1"};
    selection.figureItem = "Sz";
    EXPECT_EQ(KeptSelection(selection, model), selection);
}

TEST(KeptSelection, WhatHasGoneGivesWayToTheFirstUse)
{
    ResultSelection selection = FirstUseSelection(TwoGirders());
    SelectLoad(selection, "D");
    SelectGirder(selection, TwoGirders(), "G2");
    selection.excludedNames = {"G2-S1"};
    AnalysisModel model = TwoGirders();
    model.loadCaseNames.erase(model.loadCaseNames.begin());
    model.girderNames.pop_back();
    const ResultSelection kept = KeptSelection(selection, model);
    EXPECT_EQ(kept.load, "-(B-L)max");
    EXPECT_EQ(kept.girder, "G1");
    EXPECT_FALSE(kept.stationEnabled);
    EXPECT_THAT(kept.offeredNames, ElementsAre("G1-S1", "G1-C1"));
    EXPECT_THAT(kept.excludedNames, IsEmpty());
}

TEST(KeptSelection, WithoutGirdersAllNamesAreShown)
{
    AnalysisModel model = TwoGirders();
    const ResultSelection selection = FirstUseSelection(model);
    model.girderNames.clear();
    const ResultSelection kept = KeptSelection(selection, model);
    EXPECT_EQ(kept.girder, NoneWord());
    EXPECT_EQ(kept.station, AllWord());
    EXPECT_TRUE(kept.stationEnabled);
    EXPECT_THAT(kept.offeredNames, ElementsAre("G1-S1", "G1-C1", "G2-S1"));
}

TEST(KeptSelection, WhatWasChosenWithoutResultsIsNoChoice)
{
    EXPECT_EQ(KeptSelection(FirstUseSelection({}), TwoGirders()), FirstUseSelection(TwoGirders()));
}

TEST(SwapOver, WhatIsLaidOverAndWhatTheTableShowsChangePlaces)
{
    const AnalysisModel model = TwoGirders();
    ResultSelection selection = FirstUseSelection(model);
    const ResultSelection before = selection;
    SwapOver(selection, model);
    EXPECT_EQ(selection, before) << "nothing is laid over";
    selection.overLoad = model.loadCaseNames[1];
    selection.overGirder = "G2";
    SwapOver(selection, model);
    EXPECT_EQ(selection.load, model.loadCaseNames[1]);
    EXPECT_EQ(selection.overLoad, before.load);
    EXPECT_EQ(selection.girder, "G2");
    EXPECT_EQ(selection.overGirder, "G1");
    EXPECT_THAT(selection.offeredNames, ElementsAre("G2-S1"));
    // Of all girders the figure shows the first one.
    selection.girder = AllWord();
    selection.overLoad.clear();
    selection.overGirder = "G2";
    SwapOver(selection, model);
    EXPECT_EQ(selection.girder, "G2");
    EXPECT_EQ(selection.overGirder, "G1");
}

} // namespace sbd

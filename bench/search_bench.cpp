// A search over everything against find over the same texts. The limit stands in docs/performance.md.
#include "bench/baseline.h"
#include "search/search_index.h"
#include "search/understand.h"

#include <string>
#include <vector>

namespace sbd::bench {

namespace {

ShortestTimes plainTimes;
ShortestTimes searchTimes;

/// Search lines by number: a word, two words, a word of nearly every text, one of none.
const std::string& Line(std::int64_t number)
{
    static const std::vector<std::string> lines = {"検索：ボルト", "横桁 スカーラップ", "の", "どこにもない言葉"};
    return lines[static_cast<std::size_t>(number)];
}

/// The line in each text, and nothing else.
void BM_PlainFind(benchmark::State& state)
{
    const CSearchIndex& index = SearchIndex();
    std::vector<std::u16string> texts;
    for (std::size_t i = 0; i < index.Entries().size(); ++i)
        texts.emplace_back(index.OwnText(i));
    const std::u16string word = Skeleton(Line(state.range(0)));
    Measure(state, plainTimes, [&] {
        std::size_t found = 0;
        for (const std::u16string& text : texts)
            found += text.find(word) != std::u16string::npos;
        return found;
    });
    state.counters["texts"] = static_cast<double>(texts.size());
}

void BM_Search(benchmark::State& state)
{
    const CSearchIndex& index = SearchIndex();
    std::size_t hits = 0;
    Measure(state, searchTimes, [&] {
        SearchResult result = index.Search(Line(state.range(0)), {});
        hits = result.hits.size();
        return result;
    });
    state.counters["hits"] = static_cast<double>(hits);
    state.counters["times_bare"] = searchTimes.Of(state.range(0)) / plainTimes.Of(state.range(0));
}

void BM_MakeIndex(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(CSearchIndex());
}

void Lines(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgName("line")->DenseRange(0, 3)->UseManualTime()->Unit(benchmark::kMicrosecond);
}

// The baseline first: the ratio is taken from the times measured so far.
BENCHMARK(BM_PlainFind)->Apply(Lines);
BENCHMARK(BM_Search)->Apply(Lines);
BENCHMARK(BM_MakeIndex)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace sbd::bench

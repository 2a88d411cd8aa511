#include "tools/search_command.h"

#include "search/search_index.h"
#include "tools/command_support.h"

#include <nlohmann/json.hpp>

namespace sbd {

namespace {

using nlohmann::json;

std::string_view KindName(EntryKind kind)
{
    switch (kind) {
    case EntryKind::Topic:
        return "topic";
    case EntryKind::Question:
        return "question";
    case EntryKind::Item:
        break;
    }
    return "item";
}

json PlaceJson(const SearchPlace& place)
{
    return {{"block", place.block}, {"row", place.row}, {"column", place.column}};
}

std::string_view FieldName(HitField field)
{
    switch (field) {
    case HitField::Title:
        return "title";
    case HitField::Label:
        return "label";
    case HitField::Choice:
        return "choice";
    case HitField::Question:
        return "question";
    case HitField::Page:
        break;
    }
    return "page";
}

json HitJson(const SearchEntry& entry, HitField field)
{
    json hit = PlaceJson(entry.place);
    hit["foundIn"] = FieldName(field);
    hit["kind"] = KindName(entry.kind);
    hit["text"] = entry.text;
    return hit;
}

json QuestionsJson()
{
    json questions = json::array();
    for (const Question& question : Questions()) {
        json places = json::array();
        for (const SearchPlace& place : question.places)
            places.push_back(PlaceJson(place));
        questions.push_back(
            {{"question", question.question}, {"answer", question.answer}, {"places", std::move(places)}});
    }
    return {{"questions", std::move(questions)}};
}

} // namespace

CommandResult RunSearch(std::span<const std::string> arguments)
{
    std::string line;
    bool hasWords = false; // also an empty one: then there is nothing to look for, and nothing wrong
    bool any = false;
    bool topics = false;
    bool items = false;
    bool questions = false;
    for (const std::string& argument : arguments) {
        if (argument == "--any")
            any = true;
        else if (argument == "--topics")
            topics = true;
        else if (argument == "--items")
            items = true;
        else if (argument == "--qa")
            questions = true;
        else if (argument.starts_with("--"))
            return WrongUse("search", "知らないオプションです: " + argument);
        else {
            hasWords = true;
            line += (line.empty() ? "" : " ") + argument;
        }
    }
    if (questions)
        return line.empty() ? Print(QuestionsJson()) : WrongUse("search", "--qa に言葉は指定できません");
    if (!hasWords)
        return WrongUse("search", "検索する言葉がありません");
    const bool everywhere = !topics && !items;
    const SearchResult result =
        SearchIndex().Search(line, {.allWords = !any, .topics = topics || everywhere, .items = items || everywhere});
    json hits = json::array();
    for (std::size_t i = 0; i < result.hits.size(); ++i)
        hits.push_back(HitJson(*result.hits[i], result.fields[i]));
    return Print({{"title", result.title},
                  {"count", result.hits.size()},
                  {"hits", std::move(hits)},
                  {"notes", result.notes},
                  {"tips", result.tips}});
}

} // namespace sbd

#include "results/records.h"

#include "results/byte_source.h"
#include "results/field_reader.h"

#include <new>

namespace sbd {

namespace {

constexpr std::size_t kTitleField = 256;

/// A file larger than the memory leaves the record empty: one project that cannot be shown must not end the program.
template <typename Record>
bool ReadFile(const std::filesystem::path& path, Record& record)
{
    const std::unique_ptr<CFileSource> source = CFileSource::Open(path);
    if (!source)
        return false;
    try {
        return record.Read(*source);
    } catch (const std::bad_alloc&) {
        record = {};
        return false;
    }
}

void ReadGridSizes(CFieldReader& reader, AnalysisModel& model)
{
    model.grid1 = reader.Word();
    model.grid2 = reader.Word();
    model.grid3 = reader.Word();
    model.grid4 = reader.Word();
    const bool ownWord = model.grid3 < 0;
    // Negated without sign, so that the smallest number is no overflow.
    if (ownWord)
        model.grid3 = static_cast<std::int32_t>(0U - static_cast<std::uint32_t>(model.grid3));
    model.grid5 = ownWord ? reader.Word() : model.grid3;
    model.pointCount = reader.Word();
    model.lineCountA = reader.Word();
    model.lineCountB = reader.Word();
    model.girderCount = reader.Word();
    model.stationCount = reader.Word();
    model.grid6 = reader.Word();
    model.grid7 = reader.Word();
}

void ReadGrid(CFieldReader& reader, AnalysisModel& model)
{
    ReadGridSizes(reader, model);
    const std::int64_t girders = model.girderCount;
    const std::int64_t stations = model.stationCount;
    const std::int64_t points = model.pointCount;

    model.gridNodes = reader.Array<std::int32_t>(EntryCount(girders, stations));
    model.gridNodes2 = reader.Array<std::int32_t>(EntryCount(girders, stations));
    model.girderElements = reader.Array<std::int32_t>(EntryCount(girders, stations - 1));
    model.crossElements = reader.Array<std::int32_t>(stations > 1 ? EntryCount(girders - 1, stations) : 0);
    model.lineNamesA = reader.Names(EntryCount(model.lineCountA));
    model.lineNamesB = reader.Names(EntryCount(model.lineCountB));
    model.girderNames = reader.Names(EntryCount(girders));
    model.stationNames = reader.Names(EntryCount(stations));
    model.stationWords = reader.Array<std::int32_t>(EntryCount(stations));
    model.linePoints = reader.Array<std::array<double, 3>>(EntryCount(model.lineCountB, model.lineCountA));
    model.girderPoints = reader.Array<std::array<double, 3>>(EntryCount(model.lineCountB, girders));
    model.pointPairs = reader.Array<std::array<std::int32_t, 2>>(EntryCount(points));
    model.pointIndex = reader.Array<std::int32_t>(points > 0 ? EntryCount(2 * points + 2) : 0);
    model.grid8 = reader.Word();
    model.stationRecords = reader.Array<std::array<std::int32_t, 4>>(EntryCount(stations));
    model.tailCount = reader.Word();
    model.tailWords = reader.Array<std::int32_t>(EntryCount(model.tailCount));
}

} // namespace

bool AnalysisModel::Read(const std::filesystem::path& path)
{
    return ReadFile(path, *this);
}

bool AnalysisModel::Read(CByteSource& source)
{
    *this = {};
    CFieldReader reader(source);
    title = reader.Text(kTitleField);
    header = reader.Words<9>();
    loadCaseCount = reader.Word();
    loadCaseNames = reader.Names(EntryCount(loadCaseCount));
    secondNameCount = reader.Word();
    secondNames = reader.Names(EntryCount(secondNameCount));
    nodeCount = reader.Word();
    elementCount = reader.Word();
    nodeNames = reader.Names(EntryCount(nodeCount));
    elementNames = reader.Names(EntryCount(elementCount));
    nodeWords = reader.Array<std::int32_t>(EntryCount(nodeCount));
    elementWords = reader.Array<std::int32_t>(EntryCount(elementCount));
    elementLinks = reader.Array<std::array<std::int32_t, 4>>(EntryCount(elementCount));
    sectionCount = reader.Word();
    secondSectionCount = reader.Word();
    sections = reader.Array<std::array<std::int32_t, 9>>(EntryCount(sectionCount));
    secondSections = reader.Array<std::array<std::int32_t, 4>>(EntryCount(secondSectionCount));
    gridFlag = reader.Word();
    if (gridFlag != 0)
        ReadGrid(reader, *this);
    sectionNames = reader.Names(EntryCount(sectionCount));
    secondSectionNames = reader.Names(EntryCount(secondSectionCount));
    lastWord = reader.Word();
    cut = reader.EndedEarly();
    return true;
}

bool AnalysisModel::HasTurnedAxes(std::size_t element) const
{
    if (element >= elementLinks.size())
        return false;
    const std::int32_t section = elementLinks[element][2];
    return section >= 1 && static_cast<std::size_t>(section) <= sections.size()
           && sections[static_cast<std::size_t>(section) - 1][0] != 0;
}

bool ElementTable::Read(const std::filesystem::path& path)
{
    return ReadFile(path, *this);
}

bool ElementTable::Read(CByteSource& source)
{
    *this = {};
    CFieldReader reader(source);
    elementTableCount = reader.Word();
    cut = reader.EndedEarly();
    if (elementTableCount <= 0)
        return true;
    ends = reader.Array<std::array<std::int32_t, 3>>(EntryCount(elementTableCount));
    cut = reader.EndedEarly();
    if (reader.ArrayWasMissing())
        return false;
    elementValues = reader.Array<std::array<unsigned char, 48>>(EntryCount(elementTableCount));
    cut = reader.EndedEarly();
    return !reader.ArrayWasMissing();
}

bool NodeTable::Read(const std::filesystem::path& path)
{
    return ReadFile(path, *this);
}

bool NodeTable::Read(CByteSource& source)
{
    *this = {};
    CFieldReader reader(source);
    nodeTableCount = reader.Word();
    coordinates = reader.Array<std::array<double, 3>>(EntryCount(nodeTableCount));
    nodeFlags = reader.Array<std::int32_t>(EntryCount(nodeTableCount));
    nodeValues = reader.Array<std::array<std::int32_t, 6>>(EntryCount(nodeTableCount));
    cut = reader.EndedEarly();
    return true;
}

std::optional<double> ResultCube::At(std::size_t item, std::size_t loadCase, std::size_t component,
                                     std::size_t loadCaseCount, std::size_t components) const
{
    if (loadCase >= loadCaseCount || component >= components)
        return std::nullopt;
    const std::uint64_t inItem = std::uint64_t{loadCase} * components + component;
    // By division, since a product of counts that lie could overflow.
    if (inItem >= values.size() || item > (values.size() - 1 - inItem) / (std::uint64_t{loadCaseCount} * components))
        return std::nullopt;
    return values[static_cast<std::size_t>(item * std::uint64_t{loadCaseCount} * components + inItem)];
}

bool ResultCube::Read(const std::filesystem::path& path)
{
    return ReadFile(path, *this);
}

bool ResultCube::Read(CByteSource& source)
{
    *this = {};
    CFieldReader reader(source);
    size1 = reader.Word();
    size2 = reader.Word();
    size3 = reader.Word();
    cut = reader.EndedEarly();
    if (size1 <= 0)
        return true;
    values = reader.Values(EntryCount(size1, size2, size3));
    cut = reader.EndedEarly();
    return !reader.ArrayWasMissing();
}

} // namespace sbd

#include "sbdpage_book.h"

#include "document/path.h"
#include "document/section_doc.h"
#include "project/console.h"
#include "sbdpage_pictures.h"
#include "upperview/book_paper.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

std::optional<int> RunBookCommand(const QStringList& arguments)
{
    if (arguments.value(1) != u"book"_s)
        return std::nullopt;
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"sbdpage book: writes the input of a project as a PDF with cover, contents and bookmarks."_s);
    parser.addHelpOption();
    parser.addPositionalArgument(u"IN"_s, u"The project; its names lie beside it."_s);
    parser.addPositionalArgument(u"OUT"_s, u"The PDF. As a spreadsheet: sbdtool book."_s);
    parser.addOptions({{u"blocks"_s, u"Only these blocks, \"301,313,600-639\"."_s, u"list"_s},
                       {u"since"_s, u"Only blocks in which IN differs from this project."_s, u"file"_s},
                       {u"sketches"_s, u"With the sketches of the help pages."_s},
                       {u"landscape"_s, u"On sheets that lie."_s}});
    parser.process(arguments.mid(0, 1) + arguments.mid(2));
    const QStringList words = parser.positionalArguments();
    if (words.size() != 2)
        return FailCall(u"a project and a file to write are needed"_s);
    const std::optional<std::vector<int>> wanted = ReadBlockList(parser.value(u"blocks"_s).toStdString());
    if (!wanted)
        return FailCall(u"--blocks takes numbers of blocks"_s);
    CKELDSectionDoc doc;
    if (!doc.OpenDocument(words[0]).Ok())
        return FailCall(u"cannot read "_s + words[0]);
    std::vector<int> blocks = wanted->empty() ? FilledBlocks(doc.Data()) : BookBlocks(*wanted);
    BookFacts facts = FactsOf(doc.Data(), QFileInfo(words[0]).completeBaseName().toStdString(), ToPath(words[0]),
                              "KELD section " SBD_VERSION);
    facts.blocks = wanted->empty() ? "入力済みのすべてのブロック" : "選んだブロック";
    if (const QString since = parser.value(u"since"_s); !since.isEmpty()) {
        CKELDSectionDoc before;
        if (!before.OpenDocument(since).Ok())
            return FailCall(u"cannot read "_s + since);
        std::vector<int> changed = ChangedBlocks(before.Data(), doc.Data());
        if (!wanted->empty())
            std::erase_if(changed, [&](int block) { return std::ranges::find(blocks, block) == blocks.end(); });
        blocks = changed;
        facts.blocks = since.toStdString() + " から変わったブロック";
    }
    const BookLook look{doc.display.fontFaceName, parser.isSet(u"sketches"_s), parser.isSet(u"landscape"_s)};
    const std::optional<BookReport> report = WriteBookPdf(words[1], doc.Data(), blocks, facts, look);
    if (!report || !report->result.Ok())
        return FailCall(u"cannot write "_s + words[1] + u": "_s
                        + QString::fromStdString(report ? report->result.detail : std::string()));
    PrintText(stdout, words[1].toStdString() + ": " + std::to_string(blocks.size()) + " blocks, "
                          + std::to_string(report->pages) + " pages\n");
    return 0;
}

} // namespace sbd

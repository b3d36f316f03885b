#include "platform/jet/error.h"
#include "study/exchange/gedcomDate.h"
#include "study/exchange/gedcomRecord.h"

#include "fuzz/targets.h"

#include <QBuffer>

using namespace study::exchange;

namespace {

constexpr int deepest = 100;

void lookThrough(const GedcomNode& node, int depth, int recordLine)
{
    Fuzz::require(depth <= deepest, "structures below one another without end");
    Fuzz::require(!node.tag.isEmpty() && node.tag == node.tag.toUpper(), "a tag that is none: " + node.tag);
    Fuzz::require(node.line >= recordLine, "a structure above its record");
    Fuzz::require(!node.isPointer || !node.value.contains(u'@'), "a pointer with its signs: " + node.value);
    Fuzz::require(node.value.isValidUtf16(), "halves of letters");
    if (node.tag == "DATE") {
        const GedcomDateRead read = readGedcomDate(node.value, node.text("PHRASE"));
        QString said = node.value.simplified();
        said.remove(u' ').remove(u'(').remove(u')');
        Fuzz::require(read.date.isKnown() || !read.rest.isEmpty() || said.isEmpty(),
                      "a date that gets lost: " + node.value);
        readGedcomPeriod(node.value);
    }
    for (const GedcomNode& each : node.children)
        lookThrough(each, depth + 1, recordLine);
}

} // namespace

void Fuzz::gedcom(const QByteArray& bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    try {
        GedcomReader reader(buffer);
        GedcomNode record;
        int line = 0;
        while (reader.next(record)) {
            require(record.line > line, "a record above the one before");
            line = record.line;
            lookThrough(record, 0, line);
        }
        require(!reader.next(record), "a record behind the last one");
        for (const GedcomProblem& each : reader.problems())
            require(each.line > 0 && !each.text.isEmpty(), "a problem of no line");
    } catch (const jet::Error& error) {
        require(error.description.startsWith("Linha "), "an error that names no line: " + error.description);
    }
}

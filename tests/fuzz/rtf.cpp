#include "fuzz/targets.h"

#include "views/rtfReader.h"

void Fuzz::rtf(const QByteArray& bytes)
{
    const RtfText read = readRtf(bytes);
    require(read.spans.size() == read.text.size() + 1, "not a span for each character");
    qsizetype at = 0;
    for (const RtfText::Span& span : read.spans) {
        require(span.begin >= at && span.begin <= span.end && span.end <= bytes.size(), "spans out of order");
        at = span.begin;
    }
}

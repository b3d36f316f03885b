// The text of a document in Rich Text Format, and where each of its characters stands in the bytes.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

struct RtfText
{
    // The bytes that stand for one character.
    struct Span
    {
        qsizetype begin;
        qsizetype end;
        bool
            afterWord; // behind a control word that nothing separates from it: a letter or a digit would be read as its
    };

    QString text;      // paragraphs, lines and the rows of a table end in "\n", its cells in a tab
    QList<Span> spans; // of the characters, and an empty one where the text ends
};

// The text of the pages alone: no tables of fonts or styles, no properties, headers, footers and notes, and nothing
// that a reader may leave out. Anything is read; what isn't the format gives some text or none.
RtfText readRtf(const QByteArray& bytes);

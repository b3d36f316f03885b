// The text of a document in Rich Text Format, and where in the bytes each of its characters is.
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
        bool afterWord; // directly after a control word: a letter or a digit here would be read as a part of it
    };

    QString text;      // paragraphs, lines and the rows of a table end in "\n", its cells in a tab
    QList<Span> spans; // of the characters, and an empty one at the end of the text
};

// The text of the pages alone: no tables of fonts or styles, no properties, headers, footers and notes, and nothing
// that a reader may leave out. Anything is read; what isn't the format gives some text or none.
RtfText readRtf(const QByteArray& bytes);

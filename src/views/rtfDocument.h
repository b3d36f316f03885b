// A document in Rich Text Format: as much of a word processor as it takes to fill in a template.
#pragma once

#include "views/rtfReader.h"

#include <optional>

// The bytes that aren't replaced stay as they are.
//
// The selection is a stretch of the text as it was opened, at first empty and at its beginning. It only moves forward,
// and what was pasted isn't searched.
class RtfDocument
{
public:
    // Nothing if the file can't be read or is no such document.
    static std::optional<RtfDocument> open(const QString& path);

    // The text as it was opened.
    const QString& text() const { return read_.text; }

    // Selects the first occurrence after the selection, whatever its case and its formatting. False, with the selection
    // unchanged, if there is none.
    bool find(const QString& text);

    // Replaces the selection with a text; the selection is then empty and follows it.
    void paste(const QString& text);

    // Writes the whole document, or nothing: then it returns false, and an earlier file stays. A folder or a file that
    // nobody may write is left alone even by the superuser.
    bool saveAs(const QString& path) const;

private:
    struct Edit
    {
        qsizetype begin;
        qsizetype end;
        QByteArray bytes;
    };

    void replace(const RtfText::Span& span, const QByteArray& bytes);

    QByteArray bytes_;
    RtfText read_;
    QList<Edit> edits_;     // in the order of the bytes
    qsizetype pasted_ = -1; // the edit that holds what was pasted last
    qsizetype from_ = 0;    // the selection, in characters
    qsizetype to_ = 0;
};

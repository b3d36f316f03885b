// What was transcribed elsewhere, once it is read: acts, with the lines that they stand on, and what is wrong with
// them.
#pragma once

#include "study/acts/act.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

namespace study {

// Something that a person who transcribes should look at.
struct Problem
{
    enum class Severity
    {
        Error,  // the file is damaged: nothing of it is written
        Warning // it was taken as it is
    };
    int line = 0; // from 1; 0: the whole file
    QString text; // why, in Portuguese
    Severity severity = Severity::Warning;

    bool operator==(const Problem&) const = default;
};

// A book, as a transcription tells of it.
struct Source
{
    QString id = {};      // the book of its acts
    QString date = {};    // a year or a date, as transcribed
    QString kind = {};    // "paroquiais"
    QString archive = {}; // where it is kept
    QString notes = {};   // all else that stands there, and what stands below it and belongs to no act
    int line = 0;

    bool operator==(const Source&) const = default;
};

struct TranscribedAct
{
    Act act;
    int line = 0;    // where it begins
    int source = -1; // its index in Transcript::sources; -1: none

    bool operator==(const TranscribedAct&) const = default;
};

struct Transcript
{
    QList<Source> sources;
    QList<TranscribedAct> acts;      // in the order of the file
    QList<Problem> problems;         // by line
    QMap<QString, int> unknownParts; // groups of the notation, kept as notes → how often
    QString encoding = {};           // Text::encoding of the file

    bool operator==(const Transcript&) const = default;

    bool isDamaged() const; // one of the problems is an error; there may be acts all the same, to be looked at
};

// The text of a file in UTF-8, with or without its mark, in UTF-16 with its mark, or in code page 1252 where it is
// neither; lines end with LF. A few bad bytes among many letters of UTF-8 leave it UTF-8: each gives U+FFFD, too.
// A byte that code page 1252 doesn't have gives U+FFFD, as characters lost earlier do.
struct Text
{
    QString text;
    QString encoding;        // "UTF-8", "UTF-16", "1252"
    QList<Problem> problems; // an error where the bytes are no text: a NUL
};
Text textOf(const QByteArray& bytes);

// What a user should know of the encoding: "" where it says itself what it is, a warning where it was guessed.
QString doubtOfEncoding(const QString& encoding);

// The whole file. Throws jet::Error where it can't be read, or is larger than any transcription is.
QByteArray bytesOf(const QString& path);

} // namespace study

// The signs of the Kleio notation: a file becomes groups with their elements, and a text becomes an element.
#pragma once

#include "study/transcripts/transcript.h"

#include <QList>
#include <QString>

namespace study::kleio {

inline constexpr auto threeQuotes = "\"\"\""; // around a value of several lines

struct Value
{
    Told told;
    bool quoted = false; // `""` is a value, and nothing at all is none
};

struct Element
{
    QString name;        // in small letters; "" for one that counts by its place
    QList<Value> values; // [] for one that isn't filled

    Told first() const { return values.isEmpty() ? Told{} : values.first().told; }
    // As text: several values with "; " between them.
    QString joined() const;
    // As it would be written, for what has no place of its own.
    QString written() const;
};

struct Group
{
    QString name; // in small letters without accents
    int indent = 0;
    int line = 0;
    QString body; // behind the $, as it stands there
    QList<Element> elements = {};

    // The elements by place, and the first one with that name; null for none.
    QList<Element> placed() const;
    const Element* named(const QString& elementName) const;
};

// The elements of one group, from what stands behind its $; problems get the line.
QList<Element> elementsOf(const QString& body, int line, QList<Problem>& problems);

struct Groups
{
    QList<Group> groups;
    QList<Problem> problems;
};
Groups groupsOf(const QString& text);

// Small letters without accents.
QString folded(const QString& text);

// Types of attributes that the system knows are matched whatever their case and accents; any other stays as it is.
QString typeOf(const QString& written);

// Whether a group of that name tells one thing of the act: "locs".
bool isFact(const QString& group);

// A text as a value that is read back as the same, and an element with its aspects; "" for an empty one.
QString written(const QString& text);
QString written(const Told& told);

} // namespace study::kleio

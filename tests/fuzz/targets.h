// What reads texts and files that the program hasn't made. Each takes any bytes, and throws Broken where what must hold
// of the outcome doesn't.
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

namespace Fuzz {

struct Broken
{
    QString what;
};

void require(bool holds, const QString& what); // throws Broken

void statements(const QByteArray& bytes); // the dialect and what it becomes
void like(const QByteArray& bytes);       // pattern and text, a line each
void dates(const QByteArray& bytes);
void numbers(const QByteArray& bytes);
void dataFile(const QByteArray& bytes); // the lines of a data file, loaded into a table
void rtf(const QByteArray& bytes);
void kleio(const QByteArray& bytes); // acts in the notation, written and read again
void table(const QByteArray& bytes); // acts as rows of cells
void gedcom(const QByteArray& bytes);

} // namespace Fuzz

// A GEDCOM file, read to its end.
#pragma once

#include "study/exchange/gedcomRecord.h"

#include <QBuffer>

#include <gtest/gtest.h>

namespace gedcomRead {

using namespace study::exchange;

struct File
{
    GedcomHead head = {};
    std::vector<GedcomNode> records = {};
    std::vector<GedcomProblem> problems = {};

    // "7: …", a line each.
    QString told() const
    {
        QStringList all;
        for (const GedcomProblem& each : problems)
            all << QString("%1: %2").arg(each.line).arg(each.text);
        return all.join('\n');
    }
    // The first NOTE of the first record.
    QString note() const { return records.empty() ? QString("-") : records.front().text("NOTE"); }
};

// Gives so many bytes at a time.
class Trickle : public QBuffer
{
public:
    Trickle(QByteArray* bytes, qint64 atOnce) : QBuffer(bytes), atOnce_(atOnce) {}

protected:
    qint64 readData(char* data, qint64 length) override { return QBuffer::readData(data, qMin(length, atOnce_)); }

private:
    qint64 atOnce_;
};

inline File readAll(QByteArray bytes, qint64 atOnce = 1 << 30)
{
    Trickle device(&bytes, atOnce);
    device.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    GedcomReader reader(device);
    File file;
    file.head = reader.head();
    GedcomNode record;
    while (reader.next(record))
        file.records.push_back(record);
    EXPECT_FALSE(reader.next(record)) << "it is over";
    EXPECT_EQ(reader.done(), 1.0);
    file.problems = reader.problems();
    return file;
}

// Both of five lines.
inline const QByteArray head551 = "0 HEAD\n1 SOUR TESTE\n1 GEDC\n2 VERS 5.5.1\n1 CHAR UTF-8\n";
inline const QByteArray head70 = "0 HEAD\n1 GEDC\n2 VERS 7.0\n1 PLAC\n2 FORM Lugar, Freguesia\n";

inline File read551(const QByteArray& lines)
{
    return readAll(head551 + lines + "0 TRLR\n");
}

inline File read70(const QByteArray& lines)
{
    return readAll(head70 + lines + "0 TRLR\n");
}

} // namespace gedcomRead

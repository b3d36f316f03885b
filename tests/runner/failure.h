// Why a step failed.
#pragma once

#include <QString>

struct Failure
{
    QString reason;
};

[[noreturn]] inline void fail(const QString& reason)
{
    throw Failure{reason};
}

// A text as a reason quotes it: on one line, with the escapes of a scenario file.
QString quoted(const QString& text);

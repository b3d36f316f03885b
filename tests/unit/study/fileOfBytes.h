// A file that holds what a test puts into it.
#pragma once

#include <gtest/gtest.h>

#include <QFile>

inline void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

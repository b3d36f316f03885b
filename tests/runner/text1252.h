// Code page 1252, as the text files of the system have it.
#pragma once

#include <QByteArray>
#include <QString>

// Throws Failure where a character has no byte.
QByteArray to1252(const QString& text);
QString from1252(const QByteArray& bytes);

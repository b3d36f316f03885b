// The one error type of the program.
#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

namespace jet {

// What went wrong, with a number that users of the platform know and a Portuguese description that says what failed,
// on what (the file, the table, the column). Thrown by value; caught by const reference. Number 0 is no error.
class Error : public std::exception
{
public:
    Error() = default;
    Error(long errorNumber, const QString& text) : number(errorNumber), description(text), utf8_(text.toUtf8()) {}

    const char* what() const noexcept override { return utf8_.constData(); } // the description in UTF-8

    long number = 0;
    QString description;

private:
    QByteArray utf8_;
};

// The numbers that the program itself tells apart.
namespace number {
inline constexpr long invalidCall = 5; // an argument outside what the routine takes
inline constexpr long overflow = 6;    // a number beyond the range of its target
inline constexpr long outOfMemory = 7;
inline constexpr long typeMismatch = 13;  // a text that is no number, a text that is no date
inline constexpr long internalError = 51; // a failure that isn't the engine's
inline constexpr long fileNotFound = 53;
inline constexpr long fileExists = 58;
inline constexpr long diskFull = 61;
inline constexpr long permissionDenied = 70; // read-only, or the copy of a file onto itself
inline constexpr long pathNotFound = 76;
inline constexpr long invalidNull = 94;        // a null where a value is needed
inline constexpr long noCurrentRow = 3021;     // BOF or EOF, or a deleted row
inline constexpr long invalidPosition = 3001;  // an absolute position that the set does not have
inline constexpr long notUpdatable = 3251;     // a field or a set of rows that cannot be written
inline constexpr long noSuchField = 3265;      // a field that the select doesn't have
inline constexpr long objectClosed = 3704;     // a recordset that isn't open
inline constexpr long alreadyOpen = 3705;      // a connection that must be closed first
inline constexpr long connectionClosed = 3709; // a statement on a closed connection
inline constexpr long duplicateKey = -2147217887;
inline constexpr long invalidStatement = -2147217900; // syntax, unknown table or column, refused value
inline constexpr long engineFailure = -2147467259;    // not a BDP, damaged, locked by another program
} // namespace number

} // namespace jet

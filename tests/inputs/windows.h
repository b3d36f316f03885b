// The windows in which something is typed: how they are reached, which control holds which column, and which commands
// store it.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace Inputs {

enum class Kind
{
    Text,     // a text, or null
    Name,     // a text that the program may mark with a "*"
    Whole,    // a number without a fraction
    Amount,   // any number
    Date,     // dd/mm/yyyy
    Flag,     // a bit
    Code,     // the number behind the entry of a list
    Word,     // the text of the entry of a list
    Currency, // its first two letters
    Place,    // code and letter out of the entry of a list
    Option,   // one of several; the column isn't compared
    Path      // of a file
};

// What the system does otherwise with a field.
enum Oddity
{
    None = 0,
    KeptWhenBlank = 1, // a field that was emptied leaves the column as it was
    Lingers = 2,       // a null shows what the row before had there
    WithDate = 4,      // a flag counts only beside a date
    NotAsTyped = 8,    // the program makes something else of it, and shows that
    NotStored = 16     // has no column of its own
};

struct Field
{
    QString control;
    Kind kind;
    QString column;
    QString letter; // of a place: the column of its letter; of a flag WithDate: that of the date
    int oddities = None;
};

struct Edit
{
    QString begin, confirm, cancel;
    bool adds = false;     // a row; otherwise one is altered
    bool searches = false; // nothing may change, confirmed or not
};

// A column and where its value is seen: "txtNind", "frmInd.txtNind", or "dtgProf:0", a cell of the current row.
struct Key
{
    QString column;
    QString seen;
};

struct Window
{
    QString name;
    QString form;
    QStringList way; // from the empty main window
    QString card;    // whose record it is: "frmInd" or "frmFam"; empty: none
    QString grid;    // of the rows; empty: none
    QString table;
    QList<Key> owner; // what a row of this window has in these columns
    QList<Key> row;   // with the owner's: the row that is shown
    QList<Edit> edits;
    QList<Field> fields;
    QStringList pickers = {};     // buttons that bring a person or a place
    QStringList others = {};      // tables that may change too, in rows with the owner's number
    bool several = false;         // an alteration may reach all rows of the owner
    bool rowStays = false;        // where what hangs on the row can't be stored, the row itself is altered all the same
    bool silentWhenBlank = false; // the confirm does nothing without a text, and says nothing
};

const QList<Window>& windows();

} // namespace Inputs

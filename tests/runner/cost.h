// What a person spends on a scenario: by the keystroke model, which knows no thinking and no reading.
#pragma once

#include <QList>
#include <QString>

struct Cost
{
    int clicks = 0;
    int keys = 0;
    int boxes = 0;   // message boxes and file dialogs, each with its answer
    int windows = 0; // how often another form became the active one; it takes no time of its own

    bool operator==(const Cost&) const = default;
    Cost& operator+=(const Cost& other);
    double seconds() const;
    QString told() const; // "138 clicks, 286 keys, 2 boxes, 31 window changes, 261.3 s"
};

// The cost of a part of a scenario that is told between two marks.
struct Account
{
    QString title;
    Cost cost = {};
};

// The whole scenario, and its parts.
struct Accounts
{
    Cost whole;
    QList<Account> parts;
    bool counting = false; // the last part isn't over

    void spend(const Cost& cost);
    void begin(const QString& title); // as requireOver()
    const Account& end();             // throws Failure where none was begun
    void requireOver() const;         // throws Failure where a part isn't over
    QList<Account> report() const;    // the parts; where there are none, the whole without a title
};

class Play;

// What the step takes as things stand before it. The form that it turns to takes no window change here.
Cost costOf(const Play& play);
// The form in which the step acts: the one of its control; "" for a step without one.
QString formOf(const Play& play);
QString activeForm(); // "" where no form but the main window is

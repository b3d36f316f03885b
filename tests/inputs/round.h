// One round: somebody opens a window, begins to add, to alter or to search, fills fields, and confirms or gives up.
#pragma once

#include "inputs/fields.h"
#include "inputs/player.h"

#include <optional>

namespace Inputs {

struct Tally
{
    int rounds = 0;
    int begun = 0; // edits and searches
    int stored = 0;
    int refused = 0; // confirmations that a box has refused
    int givenUp = 0;
    int skipped = 0; // the window couldn't be reached, or nothing begun
};

class Round
{
public:
    Round(StepPlayer& player, Journal& journal, const Store& store, Dice dice, const Window& window, Tally& tally);

    // Throws Failure where the program does what it must not.
    void play();

    // Closes what is open, until nothing but the main window is shown. False where that can't be done.
    static bool closeAll(StepPlayer& player);

private:
    bool open();
    bool chooseRow();
    bool begin();
    bool begin(const Edit& edit);
    static void emptyField(StepPlayer& player, const QWidget* form);
    void fill();
    void fillField(const Field& field);
    void typeInto(const Field& field);
    void checkPaste(const Field& field, const QString& text, const Outcome& outcome) const;
    void pick(const QString& button);
    void pickPerson();
    void pickPlace();
    void moveFocus();
    bool confirm(); // whether the edit is over
    void checkSearch();
    void giveUp();
    void finish();

    void checkOutcome(const Dump& now, const QList<Change>& changed, const Outcome& outcome, bool closed);
    void checkReach(const QList<Change>& changed) const;
    void checkUnchanged(const QString& after) const;
    void checkMembers(const Dump& now) const;
    const Change* ownChange(const QList<Change>& changed) const;
    std::optional<qint64> rowShown(const Dump& dump) const;
    void showAgain(qint64 row, const Row& stored);
    QStringList seeAgain(const Row& stored);
    bool goToRecord(const QString& number);

    Outcome step(const QString& line) { return player_.play(line); }
    QString of(const QString& control) const { return window_.form + '.' + control; }
    QString caption() const; // of the command that confirms
    bool isShown(const QString& form) const;
    QString number() const; // of the card's record

    StepPlayer& player_;
    Journal& journal_;
    const Store& store_;
    Dice dice_;
    const Window& window_;
    Tally& tally_;
    int wildness_; // one field in so many gets what it isn't made for

    Edit edit_;
    Dump before_; // the edit
    QString captionBefore_, captionBegun_, record_;
    QMap<QString, QString> owner_;
    std::optional<qint64> row_; // that is altered
    Seen seen_;                 // at the last confirmation
};

} // namespace Inputs

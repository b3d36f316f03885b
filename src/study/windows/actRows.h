// The rows of a sheet: one a person, with role, name, who it is, sex and residence.
#pragma once

#include "platform/forms/controls.h"
#include "study/acts/sheet.h"

#include <QLabel>
#include <QList>
#include <QSet>
#include <QString>
#include <QWidget>

#include <optional>

class QGridLayout;

namespace study {

// Row i shows person i. A row that is no longer needed is hidden, and used again: nothing moves on the screen but
// texts. The celebrant stands elsewhere, and his row is hidden.
class ActRows : public QWidget
{
    Q_OBJECT

public:
    explicit ActRows(QWidget* parent = nullptr);

    // Shows the people of the sheet. A residence that is no place of the BDP yet is marked, unless it is among those
    // that the user has left to the act.
    void show(const Sheet& sheet, bool locked, const QSet<QString>& leftToTheAct = {});
    void showOne(const Sheet& sheet, int person, const QSet<QString>& leftToTheAct = {});

    // The field that shows it; null where another part of the window does.
    TextBox* field(const Spot& spot) const;
    std::optional<Spot> spotOf(const QObject* field) const;

signals:
    // Some fields were made, from that row on.
    void made(int firstRow);

private:
    struct Row
    {
        QLabel* role = nullptr;
        TextBox* name = nullptr;
        QLabel* who = nullptr;
        TextBox* sex = nullptr;
        TextBox* residence = nullptr;
        QLabel* where = nullptr;
    };
    void makeRows(int count);
    Row madeRow(int number);
    void reveal(const Row& row, bool shown, bool sexAsked);

    QGridLayout* grid_;
    QList<Row> rows_;
};

// "?" for one who isn't decided, "novo", "nº 85", "só no acto"; "" without a name.
QString identityText(const Sheet& sheet, int person);

} // namespace study

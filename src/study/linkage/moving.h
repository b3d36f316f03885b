// What hangs on a record that goes, moved to the one that stays.
#pragma once

#include "study/linkage/columns.h"
#include "study/linkage/references.h"

#include <QHash>
#include <QStringList>

namespace study::linkage {

class Moving
{
public:
    explicit Moving(jet::Connection& connection) : bdp(connection), recording(connection) {}

    // All that names the one names the other then. Rows that would have the key of another one become one with it; rows
    // of a list that are the same but for their number become one.
    void moveAll(const Named& from, const QJsonValue& to);

    // Before moveAll(): assistants have a copy of the day of their act. Those of the two acts that become one, by their
    // letter, who have the day of theirs get that of the one that stays; a day of their own stays.
    struct Act
    {
        QJsonValue entity, day;
    };
    void followDay(const QString& letter, const Act& kept, const Act& other, const QJsonValue& day);

    // "2 residências passam para o nº 5.", in the order of the references; they are counted from the last call on.
    QStringList told(const QString& to);

    // "A família nº 3" of a family with its people, for a title.
    QString person(qint64 nind) const;
    QString couple(qint64 family) const;

    jet::Connection& bdp;
    Recording recording;
    QStringList doubles;                // what has become of rows that would have been there twice
    QStringList twice;                  // of those that are there twice afterwards
    QHash<qint64, QStringList> ofUnion; // what was lost of memberships, by the family, for its notes

    QStringList completed; // rows that got what they lacked: "A residência de 01/01/1730 fica com: fonte rol."

    // Rows that become one: what is chosen of their values, where they differ, and why they can't.
    Sides sides;
    QList<Difference> differences;
    QStringList refusals;

private:
    void move(const Reference& reference, const Row& row, const QJsonValue& to);
    bool isDouble(const Reference& reference, const Row& row);
    void absorb(const Reference& reference, const Row& kept, const Row& other, const QJsonObject& key);
    void tellOfTwice(const Row& row, const QJsonObject& columns);
    Joined joinedRows(const Reference& reference, const Row& first, const Row& second, const QJsonObject& key);

    struct Count
    {
        const Reference* reference;
        int rows;
    };
    QList<Count> counts_;
    QList<Row> own_; // what the one that stays had, and no moved row is the same as yet
};

// The value in the type of the one that stood there: a code is a text in some columns, and a number in others.
QJsonValue asIn(const QJsonValue& before, const QJsonValue& value);

} // namespace study::linkage

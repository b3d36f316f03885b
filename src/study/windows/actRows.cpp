#include "study/windows/actRows.h"

#include "platform/forms/showntext.h"

#include <QGridLayout>

namespace study {

namespace {

enum Column
{
    RoleColumn,
    NameColumn,
    WhoColumn,
    SexColumn,
    ResidenceColumn,
    WhereColumn
};

constexpr int rowsAtOnce = 12; // the rows of most acts

TextBox* named(const QString& name, const QString& title, int number, QWidget* parent)
{
    auto* field = new TextBox(parent);
    field->setAccessibleName(title + " na linha " + QString::number(number + 1)); // until it has a role
    field->setObjectName(name + '_' + QString::number(number));
    keepReadableWhenDisabled(field);
    return field;
}

// What stands there already keeps its cursor and its undo.
void put(TextBox* field, const QString& value)
{
    if (field->text().trimmed() != value) field->setText(value);
}

} // namespace

QString identityText(const Sheet& sheet, int person)
{
    const Identity identity = sheet.conclusions.people.value(person);
    switch (identity.kind) {
    case Identity::Kind::Open:
        return nameOf(sheet.act.people.at(person)).isEmpty() ? QString() : QString("?");
    case Identity::Kind::New:
        return sexOf(sheet, person) == Sex::Female ? QString("nova") : QString("novo");
    case Identity::Kind::Known:
        return "nº " + QString::number(identity.nind);
    case Identity::Kind::Kept:
        return "só no acto";
    }
    return {};
}

ActRows::ActRows(QWidget* parent) : QWidget(parent), grid_(new QGridLayout(this))
{
    grid_->setContentsMargins(4, 2, 4, 2);
    grid_->setVerticalSpacing(2);
    grid_->setHorizontalSpacing(6);
    grid_->setColumnStretch(NameColumn, 2);
    grid_->setColumnStretch(ResidenceColumn, 1);
    const QStringList titles{"Papel", "Nome", "Quem é", "Sexo", "Residência"};
    for (int column = 0; column < titles.size(); ++column)
        grid_->addWidget(new QLabel(titles[column], this), 0, column);
    makeRows(rowsAtOnce);
}

ActRows::Row ActRows::madeRow(int number)
{
    const int line = number + 1;
    Row row{.role = new QLabel(this),
            .name = named("txtNome", "Nome", number, this),
            .who = new QLabel(this),
            .sex = named("txtSexo", "Sexo", number, this),
            .residence = named("txtResid", "Residência", number, this),
            .where = new QLabel(this)};
    row.role->setObjectName("lblPapel_" + QString::number(number));
    row.role->setBuddy(row.name);
    row.who->setObjectName("lblQuem_" + QString::number(number));
    row.sex->setMaxLength(1);
    row.sex->setFixedWidth(3 * row.sex->fontMetrics().horizontalAdvance('m'));
    grid_->addWidget(row.role, line, RoleColumn);
    grid_->addWidget(row.name, line, NameColumn);
    grid_->addWidget(row.who, line, WhoColumn);
    grid_->addWidget(row.sex, line, SexColumn);
    row.where->setObjectName("lblOnde_" + QString::number(number));
    row.where->setMinimumWidth(row.where->fontMetrics().horizontalAdvance('?'));
    row.where->setToolTip("Falta escolher na lista que lugar é. Até lá, fica só no acto.");
    grid_->addWidget(row.residence, line, ResidenceColumn);
    grid_->addWidget(row.where, line, WhereColumn);
    return row;
}

void ActRows::makeRows(int count)
{
    const int first = int(rows_.size());
    if (count <= first) return;
    for (int number = first; number < count; ++number) {
        const Row row = madeRow(number);
        grid_->setRowStretch(number + 1, 0);
        reveal(row, false, false);
        rows_ << row;
    }
    grid_->setRowStretch(count + 1, 1);
    emit made(first);
}

void ActRows::reveal(const Row& row, bool shown, bool sexAsked)
{
    row.role->setVisible(shown);
    row.name->setVisible(shown);
    row.who->setVisible(shown);
    row.sex->setVisible(shown && sexAsked);
    row.residence->setVisible(shown);
    row.where->setVisible(shown);
}

void ActRows::show(const Sheet& sheet, bool locked, const QSet<QString>& leftToTheAct)
{
    const int count = int(sheet.act.people.size());
    setUpdatesEnabled(false);
    makeRows(count);
    for (int person = 0; person < rows_.size(); ++person) {
        if (person < count)
            showOne(sheet, person, leftToTheAct);
        else
            reveal(rows_[person], false, false);
        for (TextBox* box : {rows_[person].name, rows_[person].sex, rows_[person].residence})
            box->setLocked(locked);
    }
    setUpdatesEnabled(true);
}

void ActRows::showOne(const Sheet& sheet, int person, const QSet<QString>& leftToTheAct)
{
    const Row& row = rows_.at(person);
    const bool elsewhere = person == celebrantOf(sheet.act);
    const QString title = roleTitle(sheet, person);
    row.role->setText(title.left(1).toUpper() + title.mid(1));
    row.who->setText(identityText(sheet, person));
    row.who->setToolTip(shownTip(sheet.conclusions.people.value(person).reason));
    put(row.name, elsewhere ? QString() : text(sheet, {person, Field::Name}));
    put(row.sex, text(sheet, {person, Field::Sex}));
    const QString residence = text(sheet, {person, Field::Residence});
    put(row.residence, residence);
    const bool known = sheet.conclusions.places.contains(residence) || leftToTheAct.contains(residence);
    row.where->setText(residence.isEmpty() || known ? QString() : QString("?"));
    row.name->setAccessibleName("Nome: " + title);
    row.sex->setAccessibleName("Sexo: " + title);
    row.residence->setAccessibleName("Residência: " + title);
    reveal(row, !elsewhere, fieldsOf(sheet.act, person).contains(Field::Sex));
}

TextBox* ActRows::field(const Spot& spot) const
{
    if (spot.person < 0 || spot.person >= rows_.size()) return nullptr;
    const Row& row = rows_[spot.person];
    switch (spot.field) {
    case Field::Name:
        return row.name;
    case Field::Sex:
        return row.sex;
    case Field::Residence:
        return row.residence;
    default:
        return nullptr;
    }
}

std::optional<Spot> ActRows::spotOf(const QObject* field) const
{
    for (int person = 0; person < rows_.size(); ++person) {
        if (field == rows_[person].name) return Spot{person, Field::Name};
        if (field == rows_[person].sex) return Spot{person, Field::Sex};
        if (field == rows_[person].residence) return Spot{person, Field::Residence};
    }
    return {};
}

} // namespace study

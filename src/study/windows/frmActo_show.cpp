// From the sheet to the screen.
#include "study/windows/frmActo.h"

#include "platform/jet/jsonrow.h"
#include "store/session.h"

#include <QCheckBox>
#include <QSignalBlocker>

using study::Field;
using study::Spot;

void FrmActo::showField(QWidget* field, const Spot& spot)
{
    const QString value = study::text(sheet_, spot);
    if (auto* box = qobject_cast<TextBox*>(field)) {
        if (box->text() != value) box->setText(value);
        box->setLocked(reads());
    } else if (auto* check = qobject_cast<QCheckBox*>(field)) {
        check->setChecked(!value.isEmpty());
        check->setEnabled(!reads());
    }
}

void FrmActo::showSheet()
{
    cmbActo->setListIndex(cmbActo->findData(int(sheet_.act.kind)));
    cmbActo->setLocked(reads());
    showRows();
    const int celebrant = study::celebrantOf(sheet_.act);
    txtCelebrante->setEnabled(celebrant >= 0);
    if (celebrant >= 0) showField(txtCelebrante, {celebrant, Field::Name});
    lblCelebrante->setText(celebrant < 0 ? QString() : study::identityText(sheet_, celebrant));
    fraObito->setVisible(sheet_.act.kind == study::ActKind::Burial);
    for (auto it = fields_.cbegin(); it != fields_.cend(); ++it) {
        auto* field = const_cast<QWidget*>(static_cast<const QWidget*>(it.key()));
        if (!fraPessoa->isAncestorOf(field)) showField(field, {.person = -1, .field = it.value()});
    }
    if (person_ >= sheet_.act.people.size()) person_ = 0;
    showPerson();
    showCommands();
}

// The rows take the height that they need; what is left is for what will be written. What a stored act has left to
// itself isn't asked for any longer.
void FrmActo::showRows()
{
    QSet<QString> leftToTheAct = unplaced_;
    if (reads())
        for (int person = 0; person < sheet_.act.people.size(); ++person)
            leftToTheAct << study::text(sheet_, {person, Field::Residence});
    pessoas->show(sheet_, reads(), leftToTheAct);
    rolo->setMaximumHeight(pessoas->sizeHint().height() + 2 * rolo->frameWidth());
}

// A name tells the name of today and the titles.
void FrmActo::showAfterTyping(const Spot& spot)
{
    if (spot.person < 0) return;
    if (spot.person == study::celebrantOf(sheet_.act))
        lblCelebrante->setText(study::identityText(sheet_, spot.person));
    else
        pessoas->showOne(sheet_, spot.person, unplaced_);
    if (spot.person == person_ && spot.field == Field::Name) showPerson();
}

void FrmActo::showPerson()
{
    const bool somebody = person_ < sheet_.act.people.size();
    fraPessoa->setEnabled(somebody);
    if (!somebody) return;
    const QString title = study::roleTitle(sheet_, person_);
    fraPessoa->setTitle("Pormenores: " + title);
    const QList<Field> told = study::fieldsOf(sheet_.act, person_);
    for (auto it = fields_.cbegin(); it != fields_.cend(); ++it) {
        auto* field = const_cast<QWidget*>(static_cast<const QWidget*>(it.key()));
        if (fraPessoa->isAncestorOf(field)) showField(field, {person_, it.value()});
    }
    const bool priest = told.contains(Field::Office);
    const bool child = told.contains(Field::Filiation);
    for (QWidget* one : {static_cast<QWidget*>(lblCargo), static_cast<QWidget*>(txtCargo)})
        one->setVisible(priest);
    for (QWidget* one : {static_cast<QWidget*>(lblFiliacao), static_cast<QWidget*>(txtFiliacao)})
        one->setVisible(!priest);
    txtFiliacao->setEnabled(child);
}

void FrmActo::showCommands()
{
    cmdGravar->setVisible(!reads());
    cmdJuntar->setVisible(!reads());
    cmdDesfazer->setVisible(!reads());
    cmdDesfazer->setEnabled(before_.has_value());
    cmdCorrigir->setVisible(reads());
    txtRazao->setLocked(reads());
}

// The parishes on the working list, that of the BDP first.
void FrmActo::fillParishes()
{
    const QSignalBlocker quiet(cmbFreguesia);
    cmbFreguesia->clear();
    const auto rows = jet::jsonRows(
        cnBDP, jet::NativeSql("select codparoquia, nomeparoquia from paroquia where codparoquia = ? or prioridade > 0 "
                              "order by codparoquia <> ?, nomeparoquia collate orv_alphabetical",
                              {CodParoquia, CodParoquia}));
    for (const QJsonObject& row : rows) {
        const int entry = cmbFreguesia->add(QString(row["nomeparoquia"].toString()).remove('*'));
        cmbFreguesia->QComboBox::setItemData(entry, row["codparoquia"].toString(), Qt::UserRole + 1);
    }
    parish_ = rows.isEmpty() ? QString() : rows.first()["codparoquia"].toString();
    if (!rows.isEmpty()) cmbFreguesia->setListIndex(0);
    cmbFreguesia->setEnabled(rows.size() > 1);
}

void FrmActo::cmbFreguesia_Click()
{
    parish_ = cmbFreguesia->currentData(Qt::UserRole + 1).toString();
    fillSoon();
}

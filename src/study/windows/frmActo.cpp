#include "study/windows/frmActo.h"

#include "common/modGeral.h"
#include "platform/forms/focus.h"
#include "platform/forms/statusline.h"

#include <QCheckBox>
#include <QScrollBar>

using study::Field;
using study::Spot;

FrmActo::FrmActo() : Form(Name), bdp_(cnBDP)
{
    setupUi(this);
    for (const auto kind : {study::ActKind::Baptism, study::ActKind::Marriage, study::ActKind::Burial})
        cmbActo->add(study::kindTitle(kind), int(kind));
    fields_ = {{txtData, Field::Date},         {txtLivro, Field::Book},          {txtFolio, Field::Folio},
               {txtNumero, Field::Number},     {txtLocal, Field::Place},         {txtObs, Field::ActNotes},
               {txtSacram, Field::Sacraments}, {txtTestam, Field::Will},         {txtOficios, Field::Offices},
               {txtMissas, Field::Masses},     {txtEsmolas, Field::Alms},        {txtIgreja, Field::Church},
               {txtSepult, Field::Grave},      {txtMortalha, Field::Shroud},     {txtCausa, Field::Cause},
               {txtLocOb, Field::DeathPlace},  {txtPadrao, Field::StandardName}, {txtEC, Field::CivilState},
               {txtIdade, Field::Age},         {txtNatural, Field::Birthplace},  {txtProf, Field::Profession},
               {txtTitulo, Field::Title},      {txtAlcunha, Field::Nickname},    {txtFiliacao, Field::Filiation},
               {txtCargo, Field::Office},      {txtParentesco, Field::Kinship},  {chkMorto, Field::Dead},
               {txtNotas, Field::Notes}};
    connectFields();
    connect(cmbActo, &QComboBox::activated, this, &FrmActo::cmbActo_Click);
    connect(cmbFreguesia, &QComboBox::activated, this, &FrmActo::cmbFreguesia_Click);
    connect(lstQuem, &QListWidget::itemClicked, this,
            [this](const QListWidgetItem* entry) { lstQuem_Click(lstQuem->row(entry)); });
    connect(cmdAceitar, &CommandButton::clicked, this, [this] { guarded([&] { overrule(); }); });
    connect(cmdJuntar, &CommandButton::clicked, this, &FrmActo::cmdJuntar_Click);
    connect(cmdFicha, &CommandButton::clicked, this, &FrmActo::cmdFicha_Click);
    connect(cmdDesfazer, &CommandButton::clicked, this, &FrmActo::cmdDesfazer_Click);
    connect(cmdCorrigir, &CommandButton::clicked, this, &FrmActo::cmdCorrigir_Click);
    connect(cmdNovo, &CommandButton::clicked, this, &FrmActo::cmdNovo_Click);
    connect(cmdGravar, &CommandButton::clicked, this, &FrmActo::cmdGravar_Click);
    connect(cmdFechar, &CommandButton::clicked, this, &FrmActo::cmdFechar_Click);
}

FrmActo::~FrmActo() = default;

void FrmActo::connectFields()
{
    for (auto it = fields_.cbegin(); it != fields_.cend(); ++it)
        connectField(const_cast<QWidget*>(static_cast<const QWidget*>(it.key())));
    connectField(txtCelebrante);
    connectRows(0);
    connect(pessoas, &study::ActRows::made, this, &FrmActo::connectRows);
    for (QWidget* other :
         std::initializer_list<QWidget*>{cmbActo, lstQuem, cmbFreguesia, txtFrases, lstObjec, txtRazao, cmdAceitar,
                                         cmdJuntar, cmdFicha, cmdDesfazer, cmdCorrigir, cmdNovo, cmdGravar, cmdFechar})
        other->installEventFilter(this);
}

void FrmActo::connectRows(int first)
{
    QWidget* last = first == 0 ? static_cast<QWidget*>(txtCelebrante)
                               : pessoas->field({.person = first - 1, .field = Field::Residence});
    for (int person = first; TextBox* name = pessoas->field({person, Field::Name}); ++person) {
        for (const Field field : {Field::Name, Field::Sex, Field::Residence}) {
            TextBox* box = field == Field::Name ? name : pessoas->field({person, field});
            connectField(box);
            setTabOrder(last, box);
            last = box;
        }
    }
}

void FrmActo::connectField(QWidget* field)
{
    field->installEventFilter(this);
    Focus::watch(
        field, [this, field] { guarded([&] { fieldEntered(field); }); },
        [this, field] { guarded([&] { fieldLeft(field); }); });
    if (const auto* box = qobject_cast<TextBox*>(field))
        connect(box, &TextBox::textEdited, this, [this, box] {
            if (const auto spot = spotOf(box)) fieldTyped(*spot, box->text());
        });
    else if (const auto* check = qobject_cast<QCheckBox*>(field))
        connect(check, &QCheckBox::clicked, this, [this, check](bool on) {
            if (const auto spot = spotOf(check)) fieldTyped(*spot, on ? "antes" : QString());
        });
}

std::optional<Spot> FrmActo::spotOf(const QObject* field) const
{
    if (const auto row = pessoas->spotOf(field)) return row;
    if (field == txtCelebrante) {
        const int celebrant = study::celebrantOf(sheet_.act);
        return celebrant < 0 ? std::nullopt : std::optional(Spot{celebrant, Field::Name});
    }
    const auto known = fields_.constFind(field);
    if (known == fields_.cend()) return {};
    return Spot{fraPessoa->isAncestorOf(static_cast<const QWidget*>(field)) ? person_ : -1, *known};
}

QWidget* FrmActo::widgetFor(const Spot& spot) const
{
    if (spot.person >= 0 && spot.person == study::celebrantOf(sheet_.act) && spot.field == Field::Name)
        return txtCelebrante;
    if (TextBox* row = pessoas->field(spot)) return row;
    for (auto it = fields_.cbegin(); it != fields_.cend(); ++it)
        if (it.value() == spot.field) return const_cast<QWidget*>(static_cast<const QWidget*>(it.key()));
    return nullptr;
}

// The details of the person come up before the focus goes to one of them.
QWidget* FrmActo::goTo(const Spot& spot)
{
    QWidget* field = widgetFor(spot);
    if (!field) return nullptr;
    if (spot.person >= 0 && spot.person != person_) {
        person_ = spot.person;
        showPerson();
    }
    rolo->ensureWidgetVisible(field, 0, field->height());
    Focus::setTo(field);
    if (auto* box = qobject_cast<TextBox*>(field)) box->selectAll();
    return field;
}

void FrmActo::fieldEntered(QWidget* field)
{
    const auto spot = spotOf(field);
    if (!spot) return;
    spot_ = spot;
    if (pessoas->isAncestorOf(field)) rolo->ensureWidgetVisible(field, 0, field->height());
    if (spot->person >= 0 && spot->person != person_) {
        person_ = spot->person;
        showPerson();
    }
    expectWhoWas(*spot);
    fillSoon();
}

// A name that is mended is most likely still that of the same person.
void FrmActo::expectWhoWas(const Spot& spot)
{
    if (spot.field != Field::Name || spot.person < 0) return;
    const study::Identity was = sheet_.conclusions.people.value(spot.person);
    if (was.kind == study::Identity::Kind::Known)
        expected_ = was.nind;
    else if (expectedIn_ != spot.person)
        expected_ = 0;
    expectedIn_ = spot.person;
}

// The value is there with every letter; what follows from it waits until the field is left.
void FrmActo::fieldTyped(const Spot& spot, const QString& typed)
{
    if (reads()) return;
    if (spot.field == Field::Date)
        sheet_.act.date = study::readDateAfter(typed, before_ ? before_->act.date : study::PartialDate{});
    else
        study::setText(sheet_, spot, typed);
    showAfterTyping(spot);
    fillSoon();
    if (spot.person < 0) return;
    // One letter tells it.
    if (spot.field != Field::Sex || typed.isEmpty()) return;
    if (sheet_.act.people[spot.person].toldSex)
        goOn(spot);
    else
        showStatus("O sexo é m, f ou ? (não se sabe).");
}

void FrmActo::fieldLeft(QWidget* field)
{
    if (!reads()) {
        takeWithoutReturn();
        settle();
    }
    const auto spot = spotOf(field);
    auto* box = qobject_cast<TextBox*>(field);
    if (!spot || !box) return;
    showField(box, *spot);
    box->setCursorPosition(0);
}

void FrmActo::cmdFechar_Click()
{
    unload(UnloadMode::ControlMenu);
}

// The list beside the sheet: what the text in the field may mean.
#include "study/windows/frmActo.h"

#include "common/codigos.h"
#include "common/marca.h"
#include "common/modGeral.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "store/session.h"

#include <QSignalBlocker>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>

using study::Choice;
using study::Field;
using study::Spot;

namespace {

constexpr QChar figureSpace(0x2007); // as wide as a digit

QStringList descriptionsOf(const QString& category)
{
    QStringList words;
    for (jet::Recordset rows = codigosDaCategoria(category); !rows.eof(); rows.moveNext())
        words << semMarca(rows["descricao"].toString());
    return words;
}

bool isPlace(Field field)
{
    return field == Field::Residence || field == Field::Birthplace || field == Field::Place ||
           field == Field::DeathPlace;
}

QString titleOf(Field field)
{
    if (isPlace(field)) return "&Que lugar é?";
    if (field == Field::Profession) return "&Que profissão é?";
    static const QList<Field> words{Field::CivilState, Field::Filiation, Field::Sacraments, Field::Office};
    return words.contains(field) ? QString("&Quais das palavras da BDP?") : QString("&Quem é?");
}

} // namespace

// Once for all letters that are typed in one go.
void FrmActo::fillSoon()
{
    if (fills_) return;
    fills_ = true;
    QTimer::singleShot(0, this, [this] { guarded([&] { fillNow(); }); });
}

void FrmActo::fillNow()
{
    if (!std::exchange(fills_, false)) return;
    try {
        fillChoices();
    } catch (const jet::Error& error) { // a box at every letter would bar the way
        showStatus("A procura falhou: " + error.description);
    }
}

// What a text usually means is taken also where the field is left without Return. Nobody is ever linked by it: only
// whom the act is about, and who can't be anybody known, is somebody new.
void FrmActo::takeWithoutReturn()
{
    fillNow();
    if (reads() || decided_ || !spot_ || choicesOf_ != spot_ || choices_.usual < 0) return;
    const Choice& usual = choices_.entries[choices_.usual];
    const bool place = usual.kind == Choice::Kind::Place || usual.kind == Choice::Kind::Profession;
    const bool fresh = usual.kind == Choice::Kind::NewPerson && choices_.entries.size() == 2 &&
                       study::subjects(sheet_.act).contains(spot_->person);
    if (!place && !fresh && spot_->field != Field::CivilState) return;
    if (!isSettled(*spot_)) takeChoice(*spot_, usual);
}

void FrmActo::takeChoice(const Spot& spot, const Choice& choice)
{
    study::take(sheet_, spot, choice);
    const QString place = study::text(sheet_, spot);
    if (choice.kind == Choice::Kind::Unplaced)
        unplaced_ << place;
    else
        unplaced_.remove(place);
}

bool FrmActo::isSettled(const Spot& spot) const
{
    return study::chosenIn(choices_, sheet_, spot) >= 0 ||
           (isPlace(spot.field) && unplaced_.contains(study::text(sheet_, spot)));
}

void FrmActo::fillChoices()
{
    chosen_ = false;
    decided_ = false;
    choicesOf_ = spot_;
    choices_ = spot_ && !reads() ? choicesFor(*spot_) : study::Choices{};
    showChoices();
}

// Whoever asks meanwhile is told how far it is, and gets the list as soon as it can be a whole one.
void FrmActo::prepareFinder()
{
    static constexpr std::chrono::milliseconds forTheUser{20};
    if (!finder_ || cnBDP.state() != jet::Connection::Open) return;
    try {
        if (!finder_->prepare()) {
            preparing_.set(forTheUser);
            if (listWaits_) showStatus(QString("A preparar o índice dos nomes: %1 %.").arg(finder_->prepared()));
            return;
        }
    } catch (const jet::Error&) { // who asks will be told
        return;
    }
    if (!std::exchange(listWaits_, false)) return;
    showStatus("O índice dos nomes está pronto.");
    fillSoon();
}

bool FrmActo::finderIsReady()
{
    if (finder_->prepare()) return true;
    listWaits_ = true;
    prepareFinder();
    return finder_->prepared() == 100;
}

// The names of both parents lead to a couple; that of one, to him or her. Who is new as long as nobody says more is
// still looked for.
study::Choices FrmActo::peopleFor(const Spot& spot)
{
    std::optional<Hourglass> first; // the index of the names may have to be made
    if (!std::exchange(searched_, true)) first.emplace();
    if (!finderIsReady()) return {};
    const study::Act act = study::withConcludedSexes(sheet_.act, sheet_.conclusions);
    const int of = act.people[spot.person].of;
    const auto isNamed = [&](study::Role role) {
        const int parent = of < 0 ? -1 : study::personWith(act, role, of);
        return parent >= 0 && !study::nameOf(act.people[parent]).isEmpty();
    };
    study::Conclusions open = sheet_.conclusions;
    for (study::Identity& identity : open.people)
        if (identity.kind == study::Identity::Kind::New) identity = {};
    QList<study::CoupleCandidate> couples;
    if (isNamed(study::Role::Father) && isNamed(study::Role::Mother)) couples = finder_->couples(act, of, open);
    study::Choices choices = study::choicesOfPerson(act, spot.person, finder_->find(act, spot.person, open), couples);
    if (expectedIn_ == spot.person) study::expectPerson(choices, expected_);
    return choices;
}

study::Choices FrmActo::placesFor(const Spot& spot)
{
    const QString typed = study::text(sheet_, spot);
    if (typed.isEmpty()) return {};
    return study::choicesOfPlace(spot.field, typed, study::placesNamed(bdp_, typed),
                                 study::newPlacesFor(bdp_, typed, parish_));
}

study::Choices FrmActo::choicesFor(const Spot& spot)
{
    const QString typed = study::text(sheet_, spot);
    if (isPlace(spot.field)) return placesFor(spot);
    switch (spot.field) {
    case Field::Name:
        return typed.isEmpty() ? study::Choices{} : peopleFor(spot);
    case Field::Profession:
        return typed.isEmpty() ? study::Choices{}
                               : study::choicesOfProfession(typed, study::professionsNamed(bdp_, typed));
    case Field::CivilState: {
        const study::Sex sex = study::sexOf(sheet_, spot.person);
        return study::choicesOfWord(typed, study::wordsFor(sex, descriptionsOf("EstCi")));
    }
    case Field::Filiation:
        return study::choicesOfWord(typed, descriptionsOf("Filia"));
    case Field::Sacraments:
        return study::choicesOfWord(typed, descriptionsOf("Sacra"));
    case Field::Office:
        return study::choicesOfWord(typed, descriptionsOf("FunPa"));
    default:
        return {};
    }
}

// Each entry with the key that chooses it. What the sheet has already is chosen, or else what Return would take.
void FrmActo::showChoices()
{
    const QSignalBlocker quiet(lstQuem);
    lstQuem->clear();
    for (qsizetype i = 0; i < choices_.entries.size(); ++i) {
        const QString letter = study::keyOf(choices_, int(i));
        lstQuem->add((letter.isEmpty() ? QString(figureSpace) : letter) + "  " + choices_.entries[i].shown);
    }
    lblLista->setText(titleOf(choicesOf_ ? choicesOf_->field : Field::Name));
    if (!choicesOf_) return;
    const int already = study::chosenIn(choices_, sheet_, *choicesOf_);
    const bool left = already < 0 && isSettled(*choicesOf_);
    lstQuem->setCurrentRow(already >= 0 ? already : left ? study::keptEntry(choices_) : choices_.usual);
}

bool FrmActo::moveChoice(int by)
{
    fillNow();
    const int count = int(choices_.entries.size());
    if (count == 0) return false;
    const QSignalBlocker quiet(lstQuem);
    lstQuem->setCurrentRow(std::clamp(lstQuem->listIndex() + by, 0, count - 1));
    lstQuem->scrollToItem(lstQuem->currentItem());
    chosen_ = true;
    return true;
}

bool FrmActo::takeNumber(int number)
{
    fillNow();
    const int entry = number == 0 ? study::newEntry(choices_) : number - choices_.firstNumber;
    if (entry < 0 || entry >= choices_.entries.size()) return false;
    takeEntry(entry);
    return true;
}

bool FrmActo::takeKept()
{
    fillNow();
    takeEntry(study::keptEntry(choices_));
    return true;
}

// Takes it for the field whose list it is, and goes on behind that.
void FrmActo::takeEntry(int entry)
{
    if (reads() || !choicesOf_ || entry < 0 || entry >= choices_.entries.size()) return;
    const Spot spot = *choicesOf_;
    takeChoice(spot, choices_.entries[entry]);
    decided_ = true;
    showSheet();
    settle(); // no field is left where the mouse has chosen
    goOn(spot);
}

// What Return takes: what the user has chosen in the list, or what is usual where nothing was settled before.
bool FrmActo::takeWhatIsChosen()
{
    fillNow();
    if (listWaits_ && spot_ && spot_->field == Field::Name && !study::text(sheet_, *spot_).isEmpty()) return false;
    if (reads() || !spot_ || choicesOf_ != spot_ || choices_.entries.isEmpty()) return true;
    const bool settled = isSettled(*spot_);
    const bool identified = spot_->field == Field::Name && spot_->person >= 0 &&
                            sheet_.conclusions.people.value(spot_->person).kind != study::Identity::Kind::Open;
    int entry = lstQuem->listIndex();
    if (!chosen_) {
        if (settled || identified) return true;
        entry = choices_.usual;
        const bool word = choices_.entries.first().kind == Choice::Kind::Word;
        if (entry < 0 && word) return true;
        if (entry < 0) {
            showStatus("Escolha na lista o que é (↓ e Return, ou Alt e o número).");
            return false;
        }
    }
    if (entry < 0 || entry >= choices_.entries.size()) return true;
    takeChoice(*spot_, choices_.entries[entry]);
    decided_ = true;
    showSheet();
    return true;
}

void FrmActo::lstQuem_Click(int entry)
{
    guarded([&] { takeEntry(entry); });
}

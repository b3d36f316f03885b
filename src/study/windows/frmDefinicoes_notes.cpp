// What the window of the settings of a study has of notes, causes of death and series.
#include "study/windows/frmDefinicoes.h"

#include "platform/forms/focus.h"
#include "platform/forms/msgbox.h"
#include "study/indicators/causes.h"
#include "study/names/fold.h"
#include "study/windows/studySettingsText.h"

#include <algorithm>

using namespace study;
using indicators::Settings;

namespace {

// What was kept stays where it is typed alike: a field has one line, and blanks around words mean nothing.
void takeWords(QString& into, const TextBox& field)
{
    if (field.text().simplified() != into.simplified()) into = field.text().simplified();
}

QString toldOfList(std::size_t children)
{
    const QString which = children == 0   ? QString("nenhuma")
                          : children == 1 ? QString("1 criança")
                                          : QString::number(children) + " crianças";
    return "Lista de nascimentos e baptismos: " + which + ". Dá-se à BDP com \"orv-estudo baptismos\".";
}

// A word alone: an act is read word by word.
bool isBeginningOfAWord(const QString& text)
{
    const QString plain = fold::plain(text).trimmed();
    return !plain.isEmpty() && plain.front().isLetter() && !plain.contains(u' ');
}

} // namespace

void FrmDefinicoes::fillCauses()
{
    for (int cause = 0; cause < indicators::causesOfTheList; ++cause)
        cmbCausa->add(indicators::nameOfCause(cause));
    cmbCausa->setListIndex(0);
}

void FrmDefinicoes::showNotes(const Settings& settings)
{
    txtFalta->setText(shownShare(settings.missingBirths));
    txtBase->setText(shownYear(settings.indexBase));
    txtNasceu->setText(settings.birthWords.simplified());
    txtBaptizado->setText(settings.baptismWords.simplified());
    lblLista->setText(toldOfList(kept_.baptisms.size()));
    causes_ = settings.causes;
    showCauses();
}

void FrmDefinicoes::showCauses()
{
    lstCausas->clear();
    for (auto it = causes_.cbegin(); it != causes_.cend(); ++it)
        lstCausas->add(it.key() + " – " + indicators::nameOfCause(std::max(0, indicators::causeById(it.value()))));
    cmdTirarCausa->setEnabled(!causes_.isEmpty());
}

bool FrmDefinicoes::takeNotes(Settings& into, Problem& problem) const
{
    const auto share = shareFrom(txtFalta->text());
    if (!share) {
        problem = {"A parte dos nascimentos que falta tem de ser um número de 0 a 20 (%)!", txtFalta};
        return false;
    }
    const auto base = yearFrom(txtBase->text());
    if (!base) {
        problem = {
            "O primeiro ano da base dos índices tem de ser um ano, como 1750; em branco, são os primeiros dez anos "
            "seguidos!",
            txtBase};
        return false;
    }
    // As it was kept, unless it is typed otherwise: the field shows so many digits alone.
    if (txtFalta->text() != shownShare(into.missingBirths)) into.missingBirths = *share;
    into.indexBase = *base;
    takeWords(into.birthWords, *txtNasceu);
    takeWords(into.baptismWords, *txtBaptizado);
    into.causes = causes_;
    return true;
}

// A word that is there already gets the other cause.
void FrmDefinicoes::cmdCausa_Click()
{
    const QString word = txtCausa->text().trimmed();
    if (!isBeginningOfAWord(word)) {
        showMessage("Deve inserir o começo de uma só palavra, como \"tiro\"!");
        return Focus::setTo(txtCausa);
    }
    causes_.insert(word, indicators::idOfCause(std::max(0, cmbCausa->listIndex())));
    txtCausa->clear();
    showCauses();
    lstCausas->setListIndex(static_cast<int>(std::distance(causes_.cbegin(), causes_.constFind(word))));
    Focus::setTo(txtCausa);
}

void FrmDefinicoes::cmdTirarCausa_Click()
{
    const int chosen = lstCausas->listIndex();
    if (chosen < 0 || chosen >= causes_.size()) return;
    causes_.erase(std::next(causes_.begin(), chosen));
    showCauses();
    lstCausas->setListIndex(std::min(chosen, static_cast<int>(causes_.size()) - 1));
}

#include "study/windows/cards.h"

#include "common/dono.h"
#include "common/editorDeTabela.h"
#include "common/instrucao.h"
#include "common/listasAbertas.h"
#include "common/locais.h"
#include "common/marca.h"
#include "platform/forms/forms.h"
#include "platform/forms/statusline.h"
#include "platform/jet/recordset.h"
#include "platform/jet/rows.h"
#include "store/session.h"

#include <QSignalBlocker>

#include <algorithm>

namespace study {

namespace {

QList<Ficha*> loadedCards()
{
    QList<Ficha*> cards;
    for (QWidget* form : Forms::loaded())
        if (auto* card = qobject_cast<Ficha*>(form)) cards << card;
    return cards;
}

// A place that isn't on the working list stays in the list of the window that shows it.
void fillPlaces(ComboBox& list)
{
    const QSignalBlocker quiet(&list);
    const QString chosen = list.text();
    const bool none = list.listIndex() < 0;
    list.clear();
    PreencheLocais(list);
    if (!none && list.findText(chosen, Qt::MatchExactly | Qt::MatchCaseSensitive) < 0) list.add(chosen);
    list.setText(chosen);
    if (none) list.setListIndex(-1);
}

void fillProfessions(ComboBox& list)
{
    const QSignalBlocker quiet(&list);
    const bool none = list.listIndex() < 0;
    const qint32 chosen = list.itemData(list.listIndex());
    list.clear();
    for (jet::Recordset rows(cnBDP, "select * from profissao"); !rows.eof(); rows.moveNext())
        list.add(semMarca(rows["profissao"].toString()), rows["codprof"].toInt());
    list.setListIndex(none ? -1 : list.findData(chosen));
}

} // namespace

QString whyCardsAreBusy()
{
    const QList<Ficha*> cards = loadedCards();
    const auto busy = std::ranges::find_if(cards, [](const Ficha* card) { return !card->emRepouso(); });
    if (busy == cards.end()) return {};
    return "Termine primeiro a edição ou a pesquisa na janela \"" + (*busy)->caption() + "\"!";
}

QString whyRowsAreInUse()
{
    if (QString busy = whyCardsAreBusy(); !busy.isEmpty()) return busy;
    for (QWidget* widget : Forms::loaded()) {
        const auto* form = qobject_cast<Form*>(widget);
        const bool holdsRows = qobject_cast<JanelaDoDono*>(widget) || qobject_cast<EditorDeTabela*>(widget);
        if (form && holdsRows && form->isShown()) return "Feche primeiro a janela \"" + form->caption() + "\"!";
    }
    return {};
}

void showOnCards()
{
    for (const auto& open : ListasAbertas::deLocais())
        fillPlaces(*open.combo);
    for (const auto& open : ListasAbertas::deProfissoes())
        fillProfessions(*open.combo);
    for (Ficha* card : loadedCards()) {
        const QString number = card->numero();
        const QString key = card->name() == "frmFam" ? "nfamilia = " : "nind = ";
        card->releFicheiro(number.isEmpty() ? QString() : key + number);
    }
}

void showOnCard(const QString& card, qint64 number)
{
    const bool isFamily = card == "frmFam";
    const jet::NativeSql same(isFamily ? "select nfamilia from familia where nfamilia = ?"
                                       : "select nind from individuo where nind = ?",
                              {number});
    if (!jet::Rows(cnBDP, same).next())
        return showStatus((isFamily ? "A família " : "O indivíduo ") + QString::number(number) +
                          " já não está na BDP.");
    auto* ficha = qobject_cast<Ficha*>(Forms::show(card));
    if (!ficha) return;
    if (!ficha->emRepouso()) return showStatus("A ficha está a meio de uma edição ou de uma pesquisa.");
    if (!ficha->isEnabled()) return showStatus("A ficha espera por outra janela, que está aberta.");
    ficha->releFicheiro((isFamily ? "nfamilia = " : "nind = ") + chaveEmSQL(number));
}

void closeWindowsOf(const QList<RowChange>& undone)
{
    for (const RowChange& row : undone) {
        if (!row.before.isEmpty() || row.key.isEmpty()) continue;
        const QString number = row.key.first().second.toString();
        if (row.table == "individuo") JanelaDoDono::fechaAsDe(TipoDeDono::Individuo, number);
        if (row.table == "familia") JanelaDoDono::fechaAsDe(TipoDeDono::Familia, number);
    }
}

} // namespace study

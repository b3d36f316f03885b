#include "common/dono.h"

#include "common/instrucao.h"
#include "common/modGeral.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"

#include <algorithm>

bool Dono::guardado() const
{
    const jet::Recordset linha(cnBDP, (familia() ? "select nfamilia from familia where nfamilia = "
                                                 : "select nind from individuo where nind = ") +
                                          chaveEmSQL(numero));
    return !linha.eof();
}

QString Dono::designacao() const
{
    return (familia() ? "a família nº " : "o indivíduo nº ") + numero;
}

QString Dono::avisoDaFalta() const
{
    QString quem = designacao();
    quem[0] = quem[0].toUpper();
    const QString falta = ficha && ficha->insere(numero) ? " ainda não está registado" : " já não existe";
    return quem + falta + " na base de dados, e nada foi gravado.";
}

void JanelaDoDono::abre(const QString& nome, const Dono& dono, bool fichaEspera)
{
    auto* janela = static_cast<JanelaDoDono*>(Forms::find(nome));
    if (janela && !janela->eDe(dono.tipo, dono.numero) && janela->podeMudarDeDono()) {
        janela->larga();
        janela = nullptr;
    }
    if (!janela) {
        janela = static_cast<JanelaDoDono*>(
            Forms::load(nome, [&dono](Form& nova) { static_cast<JanelaDoDono&>(nova).dono_ = dono; }));
        if (!janela) return;
        janela->dono_.registo = nullptr;
    }
    if (fichaEspera && dono.ficha && janela->isEnabled()) { // one that waits for the card must not be waited for
        janela->esperam_ << dono.ficha;
        dono.ficha->setEnabled(false);
    }
    janela->display();
}

bool JanelaDoDono::temAEspera(Ficha& ficha)
{
    return std::ranges::any_of(Forms::loaded(), [&](QWidget* aberta) {
        const auto* janela = qobject_cast<JanelaDoDono*>(aberta);
        return janela && janela->esperam_.contains(&ficha);
    });
}

void JanelaDoDono::fechaAsDe(TipoDeDono tipo, const QString& numero)
{
    if (Forms::isUnloadingAll()) return;
    const QList<QWidget*> abertas = Forms::loaded(); // a copy, as the list gets shorter
    for (QWidget* aberta : abertas)
        if (auto* janela = qobject_cast<JanelaDoDono*>(aberta); janela && janela->eDe(tipo, numero)) janela->larga();
}

void JanelaDoDono::larga()
{
    semVolta_ = true;
    unload();
}

// Without a number nobody is looked for, and the store tells what is missing.
bool JanelaDoDono::donoGuardado() const
{
    if (dono_.numero.isEmpty()) return true;
    const bool insere = dono_.ficha && dono_.ficha->insere(dono_.numero); // perhaps with a number that somebody has
    if (insere ? serveInsercao() : dono_.guardado()) return true;
    showMessage(dono_.avisoDaFalta());
    return false;
}

void JanelaDoDono::Form_Unload()
{
    if (Forms::isUnloadingAll()) return;
    for (const QPointer<Ficha>& ficha : std::as_const(esperam_))
        if (ficha) ficha->setEnabled(true);
    if (!semVolta_) volta();
}

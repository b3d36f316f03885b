// The two members, and what follows from the date of their marriage.
#include "families/frmFam.h"

#include "common/datas.h"
#include "common/locais.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "common/tipoFam.h"
#include "platform/forms/showntext.h"

namespace {

QString dataOuDuvida(const QVariant& data)
{
    return data.isNull() ? "????" : textoDaData(data);
}

// "DN: 01/02/1730 (São Mamede)  -  DO: ????"
QString resumoDaVida(const jet::Recordset& pessoa)
{
    const QVariant local = pessoa["localnasc"];
    const QString nome = local.isNull() ? QString() : NomeLocal(local, pessoa["tipolocalnasc"]);
    return "DN: " + dataOuDuvida(pessoa["datanasc"]) + (nome.isEmpty() ? nome : " (" + nome + ")") +
           "  -  DO: " + dataOuDuvida(pessoa["dataobito"]);
}

void mostraIdade(QLabel* rotulo, const QVariant& nascimento, const QString& casamento)
{
    rotulo->clear();
    if (!nascimento.isNull() && eData(casamento))
        rotulo->setText(QString::number(CalculaIdade(nascimento.toDate(), dataDoTexto(casamento))));
}

} // namespace

// Also runs while a family is being put on the card: mskData is still empty then, and no age results.
void FrmFam::txtNind_Change(int indice)
{
    guarded([&] {
        const Metade& membro = metade(indice);
        const auto descreve = [&](const QString& nome, const QString& vida) {
            membro.nome->setText(nome + vida);
            membro.nome->setToolTip(shownTip(vida));
        };
        if (membro.nind->text().isEmpty()) return descreve({}, {});
        const jet::Recordset pessoa(cnBDP, jet::NativeSql("select nome, datanasc, localnasc, tipolocalnasc, dataobito "
                                                          "from individuo where nind = ? limit 1",
                                                          {numeroDoTexto(membro.nind->text())}));
        if (pessoa.eof()) return descreve({}, {});
        descreve(pessoa["nome"].toString() + "  -  ", resumoDaVida(pessoa));
        mostraIdade(membro.idCalc, pessoa["datanasc"], mskData->text());
    });
}

// The age of each member whose birth is known, if the marriage has a date.
void FrmFam::mostraIdades()
{
    for (const Metade& membro : metades_)
        membro.idCalc->clear();
    for (const Metade& membro : metades_) {
        if (membro.nind->text().isEmpty() || !eData(mskData->text())) continue;
        const jet::Recordset pessoa(cnBDP, jet::NativeSql("select datanasc from individuo where nind = ? limit 1",
                                                          {numeroDoTexto(membro.nind->text())}));
        if (!pessoa.eof()) mostraIdade(membro.idCalc, pessoa["datanasc"], mskData->text());
    }
}

void FrmFam::mskData_GotFocus()
{
    guarded([&] {
        if (mskData->text() == emptyMaskedDate) mskData->clearMasked();
        dtCasamAnterior.entra(*mskData);
        mostraIdades();
    });
}

// Kept: turns cmdInt on while a family is being edited, though the mode has turned it off.
void FrmFam::mskData_Change()
{
    cmdInt->setEnabled(eData(mskData->text()));
}

void FrmFam::mskData_LostFocus()
{
    guarded([&] {
        // Nobody has changed the date: what was stored beside it stays.
        if (passo() == Passo::Alteracao && dtCasamAnterior.inalterada(*mskData)) {
            cmdInt->setEnabled(!semData(mskData->text()));
            return;
        }
        if (semData(mskData->text())) {
            chkDF->setChecked(false);
            cmdInt->setEnabled(false);
            return;
        }
        if (!VerificaData(*mskData)) return dtCasamAnterior.recusa();
        // The first date proposes the parish of the BDP; a corrected one leaves the place alone.
        if (semData(dtCasamAnterior.texto())) SeleccionaParoquiaDaBDP(*cmbLoc);
        mskini->showPlain(mskData->text());
        chkDF->setChecked(true);
        mostraIdades();
    });
}

void FrmFam::txtIdade_Validate(int indice)
{
    VerificaInteiro(*metade(indice).idade, "Deve inserir uma idade válida!", 13, 120);
}

void FrmFam::txtNC_Validate(int indice)
{
    VerificaInteiro(*metade(indice).numCasam, "Deve inserir um número maior ou igual a 0!", 0);
}

QString FrmFam::CalculaTipoFamilia(Nfam nfamilia)
{
    QString tipo = "7";
    evenIfItFails([&] {
        const jet::Recordset mae(cnBDP, "select datanasc, dataobito from individuo where nind = " +
                                            numeroEmSQL(txtSnind->text()));
        const jet::Recordset pai(cnBDP,
                                 "select dataobito from individuo where nind = " + numeroEmSQL(txtPnind->text()));
        const jet::Recordset filhos(cnBDP, "select count(datanasc) as Datas, count(nind) as  Filhos from individuo "
                                           "where  famorig = " +
                                               nfamilia.paraSQL());
        tipo = tipoDaFamilia({
            .nascimentoDaMae = !mae["datanasc"].isNull(),
            .obitos = !pai["dataobito"].isNull() && !mae["dataobito"].isNull(),
            .casamento = true, // Kept: any text of the date counts, an empty one too, so "5" and "6" never come out.
            .nascimentosDosFilhos = filhos["Datas"] == filhos["Filhos"],
        });
    });
    return tipo;
}

// What is checked before a family is written.
#include "families/frmFam.h"

#include "common/campos.h"
#include "common/dono.h"
#include "common/instrucao.h"

#include <utility>

// Without these no family is stored.
bool FrmFam::temObrigatorios()
{
    if (txtPnind->text().isEmpty() && txtSnind->text().isEmpty())
        return recusa("Deve inserir pelo menos um dos elementos da família!", txtPnind);
    if (!preenchido(cmbSit)) return recusa("Deve especificar a situação da família!", cmbSit);
    if (!preenchido(cmbTipoFam)) return recusa("Deve especificar o tipo de família!", cmbTipoFam);
    return true;
}

// Before the first statement: Error 13 for a number of a member that can't be stored. What an alteration leaves as it
// was opened isn't written, and may be any number that is stored.
void FrmFam::verificaNumeros() const
{
    const bool altera = passo() == Passo::Alteracao;
    for (int indice : {0, 1}) {
        const Metade& membro = metades_[indice];
        const MetadeAberta& aberta = abertas_[indice];
        if (membro.nind->text().isEmpty()) continue;
        if (!altera || Nind::doCampo(membro.nind->text()) != aberta.nind) registoEmSQL(membro.nind->text());
        if (!altera || membro.idade->text() != aberta.idade) inteiroEmSQL(membro.idade->text());
        if (!altera || membro.numCasam->text() != aberta.numCasam) inteiroEmSQL(membro.numCasam->text());
    }
}

// A person who was deleted since the alteration began, and left the family with that, doesn't come back into it.
bool FrmFam::membrosPresentes()
{
    const Membros guardados = membrosGuardados();
    for (int indice : {0, 1}) {
        TextBox* const campo = metade(indice).nind;
        const Nind nind = Nind::doCampoOuNenhum(campo->text());
        if (!nind || nind != abertas_[indice].nind || guardados.contains(nind)) continue;
        Dono pessoa;
        pessoa.numero = nind.texto();
        if (pessoa.guardado()) continue;
        membrosVistos_ = guardados; // this tells of the change
        return recusa(pessoa.avisoDaFalta(), campo);
    }
    return true;
}

// Whoever is typed or picked as a spouse must be there, unless the alteration leaves the number as it was opened.
bool FrmFam::conjugesExistem()
{
    for (int indice : {0, 1}) {
        TextBox* const campo = metade(indice).nind;
        if (campo->text().isEmpty()) continue;
        if (passo() == Passo::Alteracao && Nind::doCampo(campo->text()) == abertas_[indice].nind) continue;
        Dono pessoa;
        pessoa.numero = registoEmSQL(campo->text());
        if (!pessoa.guardado())
            return recusa("O indivíduo nº " + pessoa.numero + " não existe na base de dados, e nada foi gravado.",
                          campo);
    }
    return true;
}

// What stands in a field stays there, to be mended. One that the alteration leaves as it was opened isn't written.
bool FrmFam::datasValidas()
{
    const std::pair<QString, MaskedEdit*> datas[]{{"datacasam", mskData}, {"inicioobs", mskini}, {"fimobs", mskFim}};
    for (const auto& [coluna, campo] : datas) {
        if (!preenchido(campo) || eData(campo->text())) continue;
        if (passo() == Passo::Alteracao && mostradas_.contains({coluna, campo->text()})) continue;
        return recusa(dataInvalida, campo);
    }
    return true;
}

// The columns and the members that the alteration writes are as it has found them, or are to be overwritten.
bool FrmFam::podeGravarFamilia()
{
    if (membrosGuardados() != membrosVistos_) return gravaPorCima();
    QStringList colunas;
    for (const auto& [coluna, valor] : colunasAlteradas())
        colunas << coluna;
    return colunas.isEmpty() || vista_.podeGravar(adoFam.recordset(), colunas);
}

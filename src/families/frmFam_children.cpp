// The children of the family: their grid and its three commands.
#include "families/frmFam.h"

#include "common/datas.h"
#include "common/modGeral.h"
#include "common/numeros.h"
#include "common/pesquisa.h"
#include "individuals/frmInd.h"
#include "platform/forms/msgbox.h"

void FrmFam::ActualizaFilhos()
{
    evenIfItFails([&] {
        PreencheFG();
        cmdInsF->setEnabled(true);
        const int filhos = adoFilhos.hasRows() ? adoFilhos.recordset().recordCount() : 0;
        fraFilhos->setTitle(filhos == 0   ? QStringLiteral("Nenhum filho")
                            : filhos == 1 ? QStringLiteral("1 filho")
                                          : QString::number(filhos) + " filhos");
        cmdConsultar->setEnabled(filhos > 0);
        cmdElimF->setEnabled(filhos > 0);
    });
}

void FrmFam::PreencheFG()
{
    evenIfItFails([&] {
        dtgFilho->setRows(0);
        if (!adoFilhos.hasRows()) {
            cmdConsultar->setEnabled(false);
            cmdElimF->setEnabled(false);
            return;
        }
        dtgFilho->setRows(adoFilhos.recordset().recordCount() + 1);
        dtgFilho->setColumns(
            {{"Nind", 67}, {"Nome", 167}, {"D. Nasc.", 80}, {"D. Cas.", 80}, {"Fim Obs.", 80}, {"D. Obito", 80}});
        adoFilhos.recordset().moveFirst();
        for (int linha = 1; !adoFilhos.recordset().eof(); adoFilhos.recordset().moveNext())
            PreencheLinhaFilho(linha++);
        dtgFilho->setRow(1);
    });
}

void FrmFam::PreencheLinhaFilho(int linha)
{
    const jet::Recordset& filho = adoFilhos.recordset();
    dtgFilho->setTextMatrix(linha, 0, textoDoNumero(filho["nind"]));
    dtgFilho->setTextMatrix(linha, 1, filho["nome"].toString());
    dtgFilho->setTextMatrix(linha, 2, textoDaData(filho["datanasc"]));
    dtgFilho->setTextMatrix(linha, 3, textoDaData(filho["datacasam"]));
    dtgFilho->setTextMatrix(linha, 4, textoDaData(filho["fimobs"]));
    dtgFilho->setTextMatrix(linha, 5, textoDaData(filho["dataobito"]));
}

void FrmFam::cmdConsultar_Click()
{
    guarded([&] {
        if (dtgFilho->row() == 0) return;
        setEnabled(false);
        FrmInd::consulta(dtgFilho->textMatrix(dtgFilho->row(), 0));
    });
}

// The card stays enabled behind the choice: the child goes to the family that is shown when it is made.
void FrmFam::cmdInsF_Click()
{
    guarded([&] {
        if (EmPesquisa) return;
        FrmInd::pede({.origem = OrigemInd::Filho,
                      .quem = this,
                      .espera = false,
                      .IndChamado = true,
                      .oferece = [this] { return modo() == Modo::Cons; },
                      .recusa = [this](const PedidoDeIndividuo&, const FrmInd&) { return recusaDeFilho(); },
                      .recebe = [this](FrmInd& ficha) { recebeFilho(ficha); },
                      .comoQue =
                          [this](const FrmInd& ficha) {
                              return QString(ficha.sexo() == "f" ? "filha" : "filho") + " da família nº " + numero();
                          }},
                     QString());
    });
}

// Only a family that is stored, and that nobody is editing or searching for, takes a child.
std::optional<RecusaDeIndividuo> FrmFam::recusaDeFilho() const
{
    const auto guardada = [&] {
        return !jet::Recordset(cnBDP, jet::NativeSql("select nfamilia from familia where nfamilia = ?",
                                                     {Nfam::doCampo(numero()).paraColuna()}))
                    .eof();
    };
    if (modo() == Modo::Cons && !numero().isEmpty() && guardada()) return {};
    return RecusaDeIndividuo{"Só pode atribuir um filho a uma família já registada, e que não esteja a ser editada nem "
                             "pesquisada!"};
}

// A family of origin that was known is replaced without a question.
void FrmFam::recebeFilho(FrmInd& filho)
{
    filho.poeFamiliaDeOrigem(numero());
    adoFilhos.refresh();
    ActualizaFilhos();
}

// The person stays, the link to this family goes: that to another one, made elsewhere since, isn't touched.
void FrmFam::cmdElimF_Click()
{
    guarded([&] {
        if (EmPesquisa || !adoFilhos.hasRows() || dtgFilho->row() == 0) return;
        if (!ask("Tem a certeza que deseja eliminar este registo?")) return;
        cnBDP.execute(jet::NativeSql("update individuo set famorig = null where nind = ? and famorig = ?",
                                     {dtgFilho->textMatrix(dtgFilho->row(), 0), Nfam::doCampo(numero()).paraColuna()}));
        adoFilhos.refresh();
        ActualizaFilhos();
    });
}

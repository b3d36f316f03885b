#include "places/frmZona.h"

#include "common/campos.h"
#include "common/codigos.h"
#include "common/listasAbertas.h"
#include "common/modGeral.h"

#include <QRegularExpression>

FrmZona::FrmZona() : EditorProvisorio(Name, Nivel::Pais)
{
    setupUi(this);
    usa<Ui::FrmZona>(*this, adoZona, dtgZona,
                     {.nivel = Nivel::Zona,
                      .ordem = "nomezona ASC",
                      .colunas = {{"Código", "codzona", 80}, {"Nome Zona", "nomezona", 210}, {"Tipo", "tipo"}},
                      .recusas = {"Deve inserir um nome de uma zona de um país!",
                                  "A base de dados já contém uma zona com o nome que inseriu!"}});
    ListasAbertas::segueCodigos(*this, *cmbTipo, "TipZo");
}

void FrmZona::carrega()
{
    PreencheCodigos(*cmbTipo, "TipZo");
    EditorProvisorio::carrega();
}

jet::NativeSql FrmZona::fonte() const
{
    return jet::NativeSql("select codzona, nomezona, obs, tipo, codpais from zonapais where codpais = ?", {CodSup});
}

// Here alone a quote does no harm.
bool FrmZona::nomeRepetido(const QString& nome, Passo) const
{
    const jet::NativeSql iguais("select * from zonapais where nomezona = ? collate orv_nocase and codpais = ?",
                                {nome, CodSup});
    return !jet::Recordset(cnBDP, iguais).eof();
}

const QList<ModeRow>& FrmZona::modos() const
{
    using enum Effect;
    // As the countries: the code, too, is open here, unlike in the other provisional editors.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    static const QList<ModeRow> tabela = EditorDeLocais::modos() + QList<ModeRow>{{"cmbTipo", {Open}, {Shut}}};
    return tabela;
}

// Kept: the highest code is that of the texts, so that behind nine zones the tenth code comes again.
QString FrmZona::codigoNovo()
{
    const jet::Recordset maior(cnBDP, jet::NativeSql("select max(codzona) from zonapais where codpais = ?", {CodSup}));
    if (maior[0].isNull()) return CodSup + "1";
    return CodSup + textoDoNumero(numeroDoTexto(Mid(maior[0].toString(), nivel().inicio)) + 1);
}

bool FrmZona::VerificaCampos(Passo passo)
{
    if (!EditorProvisorio::VerificaCampos(passo)) return false;
    if (!preenchido(cmbTipo)) return recusa("Deve especificar o tipo de zona!", cmbTipo);
    if (passo != Passo::Insercao || codigoDoPais()) return true;
    return recusa("O código da zona é o do país (" + CodSup + ") seguido de um número!", txtCod);
}

// Whether the code is one of this country. None at all is left to the store, which refuses it.
bool FrmZona::codigoDoPais() const
{
    static const QRegularExpression numero("^[0-9]{1,9}$");
    const QString codigo = codigoAGravar();
    return codigo.isEmpty() || (codigo.startsWith(CodSup) && numero.match(codigo.mid(CodSup.size())).hasMatch());
}

void FrmZona::abreAlteracao()
{
    EditorProvisorio::abreAlteracao();
    txtCod->setLocked(true); // who was born in the zone points to its code
}

void FrmZona::limpaOutros()
{
    cmbTipo->setListIndex(-1);
}

void FrmZona::mostraOutros(const jet::Recordset& linha)
{
    ProcuraItemData(*cmbTipo, linha["tipo"]);
}

void FrmZona::escreveOutros(jet::Recordset& linha) const
{
    linha.set("tipo", itemDe(cmbTipo));
}

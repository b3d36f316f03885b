// The walk down the levels: each combo fills the next.
#include "common/globals.h"
#include "common/modGeral.h"
#include "common/vbtext.h"
#include "individuals/pedido.h"
#include "places/frmLocalizacao_niveis.h"

void FrmLocalizacao::cmbPais_Click()
{
    guarded([&] {
        if (!desceAte(Pais)) return;
        const QString pais = Mid(cmbPais->text(), 1, 2);
        if (pais == "PT")
            preenche(Distrito, jet::NativeSql("select * from distrito"));
        else
            preenche(Zona, jet::NativeSql("select * from zonapais where codpais = ?", {pais}));
    });
}

void FrmLocalizacao::cmbZona_Click()
{
    guarded([&] {
        if (desceAte(Zona)) LocalCod = codigoAte(Zona);
    });
}

void FrmLocalizacao::cmbDistrito_Click()
{
    guarded([&] {
        if (!desceAte(Distrito)) return;
        LocalCod = codigoAte(Distrito);
        preenche(Concelho, jet::NativeSql("select * from concelho where coddistrito = ?", {LocalCod}));
    });
}

void FrmLocalizacao::cmbConcelho_Click()
{
    guarded([&] {
        if (!desceAte(Concelho)) return;
        LocalCod = codigoAte(Concelho);
        preenche(Paroquia, jet::NativeSql("select * from paroquia where codconcelho = ?", {LocalCod}));
    });
}

void FrmLocalizacao::cmbParoquia_Click()
{
    guarded([&] {
        if (!desceAte(Paroquia)) return;
        LocalCod = codigoAte(Paroquia);
        preenche(Lugar, jet::NativeSql("select * from lugar where codparoquia = ?", {LocalCod}));
    });
}

void FrmLocalizacao::cmbLugar_Click()
{
    guarded([&] {
        if (!desceAte(Lugar)) return cmdSit->setEnabled(false);
        LocalCod = codigoAte(Lugar);
        preenche(Sitio, jet::NativeSql("select * from sitio where codlugar = ?", {LocalCod}));
    });
}

void FrmLocalizacao::cmbS_Click()
{
    guarded([&] {
        if (desceAte(Sitio)) LocalCod = codigoAte(Sitio);
    });
}

// Clears and shuts what stands below a level in which a place was chosen. False, with all as it was, for a blank entry.
bool FrmLocalizacao::desceAte(Nivel nivel)
{
    if (Trim((this->*niveis[nivel].lista)->text()).isEmpty()) return false;
    for (int abaixo = nivel + 1; abaixo < NumNiveis; ++abaixo) {
        ComboBox* lista = this->*niveis[abaixo].lista;
        lista->clear();
        lista->setEnabled(false);
        if (niveis[abaixo].editor) (this->*niveis[abaixo].editor)->setEnabled(false);
    }
    return true;
}

void FrmLocalizacao::preenche(Nivel nivel, const jet::NativeSql& instrucao)
{
    const DadosDoNivel& dados = niveis[nivel];
    ComboBox* lista = this->*dados.lista;
    // A BDP's parish can't be anything narrower.
    const bool aberto = OrigemLoc != 6 || nivel < Lugar;
    lista->setEnabled(aberto);
    if (dados.editor) (this->*dados.editor)->setEnabled(aberto);

    lista->add("  ");
    for (jet::Recordset locais(cnBDP, instrucao); !locais.eof(); locais.moveNext()) {
        QString nome = locais[dados.nome].toString();
        if (dados.editor) nome.remove('*'); // the mark of the places that the researcher made
        lista->add(nome, Mid(locais[dados.codigo].toString(), dados.inicio).toInt());
    }
}

void FrmLocalizacao::preenchePaises()
{
    for (jet::Recordset paises(cnBDP, "select codpais, nomepais from pais"); !paises.eof(); paises.moveNext()) {
        const QString codigo = paises["codpais"].toString();
        const int indice = cmbPais->add(codigo + " - " + paises["nomepais"].toString());
        if (codigo == "PT") cmbPais->setListIndex(indice);
    }
}

void FrmLocalizacao::escolheParoquiaDaBDP()
{
    ProcuraItemData(*cmbDistrito, Mid(CodParoquia, 1, 2));
    ProcuraItemData(*cmbConcelho, Mid(CodParoquia, 3, 2));
    ProcuraItemData(*cmbParoquia, Mid(CodParoquia, 5, 2));
}

// Two digits a level; a zone's number stands unpadded behind its country.
QString FrmLocalizacao::codigoAte(Nivel nivel) const
{
    const auto numero = [this](int n) {
        const ComboBox* lista = this->*niveis[n].lista;
        return QString::number(lista->itemData(lista->listIndex()));
    };
    if (nivel <= Zona) return Mid(cmbPais->text(), 1, 2) + (nivel == Zona ? numero(Zona) : QString());
    QString codigo;
    for (int n = Distrito; n <= nivel; ++n)
        codigo += numero(n).rightJustified(2, '0');
    return codigo;
}

// The deepest level with a place chosen. LocalCod is as the clicks left it: kept, where a level was set back to blank
// it is still the deeper one's.
void FrmLocalizacao::LocalEscolhido()
{
    for (int nivel = Sitio; nivel >= Pais; --nivel) {
        // Kept: it is the funeral's picker of persons that shuts the narrowest levels out.
        if (chamada().origem() == OrigemInd::PadreDoFuneral && nivel >= Lugar) continue;
        const QString texto = (this->*niveis[nivel].lista)->text();
        if (Trim(texto).isEmpty()) continue;
        LocalTipo = niveis[nivel].tipo;
        LocalNome = texto;
        if (nivel == Pais) {
            LocalNome = Mid(texto, 5);
            LocalCod = Mid(texto, 1, 2);
        }
        return;
    }
}

// The walk down the levels: each combo fills the next.
#include "common/marca.h"
#include "common/modGeral.h"
#include "common/text.h"
#include "individuals/pedido.h"
#include "places/frmLocalizacao.h"

#include <algorithm>

void FrmLocalizacao::lista_Click(Nivel nivel)
{
    guarded([&] {
        if (desceAte(nivel)) {
            if (nivel != Nivel::Pais) LocalCod = codigoAte(nivel);
            preencheAbaixo(nivel);
        } else if (nivel == Nivel::Lugar) {
            cmdSit->setEnabled(false);
        }
    });
}

// Clears and shuts what stands below a level in which a place was chosen. False, with all as it was, for a blank entry.
bool FrmLocalizacao::desceAte(Nivel nivel)
{
    if (Trim(lista(nivel)->text()).isEmpty()) return false;
    for (const DadosDoNivel& abaixo : niveis) {
        if (abaixo.nivel <= nivel) continue;
        lista(abaixo.nivel)->clear();
        lista(abaixo.nivel)->setEnabled(false);
        if (editor(abaixo.nivel)) editor(abaixo.nivel)->setEnabled(false);
    }
    return true;
}

// Portugal alone has districts, all others zones, with nothing below them.
void FrmLocalizacao::preencheAbaixo(Nivel nivel)
{
    if (nivel == Nivel::Zona || nivel == Nivel::Sitio) return;
    if (nivel != Nivel::Pais) {
        const auto abaixo = Nivel(int(nivel) + 1);
        return preenche(abaixo, dadosDe(abaixo).locaisDe(LocalCod));
    }
    const QString pais = codigoAte(Nivel::Pais);
    if (pais == "PT")
        preenche(Nivel::Distrito, dadosDe(Nivel::Distrito).locais());
    else
        preenche(Nivel::Zona, dadosDe(Nivel::Zona).locaisDe(pais));
}

void FrmLocalizacao::preenche(Nivel nivel, const jet::NativeSql& instrucao)
{
    // A BDP's parish can't be anything narrower.
    const bool aberto = pedidoDeLocal().origem != OrigemLoc::BDP || nivel < Nivel::Lugar;
    lista(nivel)->setEnabled(aberto);
    if (editor(nivel)) editor(nivel)->setEnabled(aberto);

    const DadosDoNivel& dados = dadosDe(nivel);
    lista(nivel)->add("  ");
    for (jet::Recordset locais(cnBDP, instrucao); !locais.eof(); locais.moveNext()) {
        QString nome = locais[dados.nome].toString();
        if (editor(nivel)) nome = semMarca(nome); // the mark of the places that the researcher made
        lista(nivel)->add(nome, Mid(locais[dados.codigo].toString(), dados.inicio).toInt());
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
    for (const Nivel nivel : {Nivel::Distrito, Nivel::Concelho, Nivel::Paroquia})
        ProcuraItemData(*lista(nivel), Mid(CodParoquia, dadosDe(nivel).inicio, dadosDe(nivel).algarismos));
}

// Chooses a country, which fills the list below it, also where it was chosen already.
bool FrmLocalizacao::escolhePais(const QString& codigo)
{
    for (int i = 0; i < cmbPais->count(); ++i) {
        if (Mid(cmbPais->list(i), 1, 2) != codigo) continue;
        cmbPais->setListIndex(-1);
        cmbPais->setListIndex(i);
        return true;
    }
    return false;
}

bool FrmLocalizacao::escolhe(Nivel nivel, const QString& numero)
{
    return lista(nivel)->isEnabledTo(this) && ProcuraItemData(*lista(nivel), numero) >= 0;
}

void FrmLocalizacao::mostraLocal(Nivel nivel, const QString& codigo, const QString& superior)
{
    const QString numero = Mid(codigo, std::max(dadosDe(nivel).inicio, 1));
    if (nivel <= Nivel::Zona) {
        if (escolhePais(nivel == Nivel::Pais ? codigo : superior) && nivel == Nivel::Zona) escolhe(nivel, numero);
        return;
    }
    if (!escolhePais("PT")) return;
    for (const DadosDoNivel& acima : niveis) {
        if (acima.nivel < Nivel::Distrito || acima.nivel >= nivel) continue;
        if (!escolhe(acima.nivel, Mid(superior, acima.inicio, acima.algarismos))) return;
    }
    escolhe(nivel, numero);
}

// A zone's number stands unpadded behind its country.
QString FrmLocalizacao::codigoAte(Nivel nivel) const
{
    const auto numero = [this](Nivel n) { return QString::number(lista(n)->itemData(lista(n)->listIndex())); };
    if (nivel <= Nivel::Zona) return Mid(cmbPais->text(), 1, 2) + (nivel == Nivel::Zona ? numero(nivel) : QString());
    QString codigo;
    for (const DadosDoNivel& dados : niveis)
        if (dados.nivel >= Nivel::Distrito && dados.nivel <= nivel)
            codigo += numero(dados.nivel).rightJustified(dados.algarismos, '0');
    return codigo;
}

// The deepest level with a place chosen. LocalCod is as the clicks left it: kept, where a level was set back to blank
// it is still the deeper one's.
void FrmLocalizacao::LocalEscolhido()
{
    for (auto nivel = niveis.rbegin(); nivel != niveis.rend(); ++nivel) {
        const DadosDoNivel& dados = *nivel;
        // Kept: it is the funeral's picker of persons that shuts the narrowest levels out.
        if (chamada().origem() == OrigemInd::PadreDoFuneral && dados.nivel >= Nivel::Lugar) continue;
        const QString texto = lista(dados.nivel)->text();
        if (Trim(texto).isEmpty()) continue;
        LocalTipo = dados.tipo;
        LocalNome = texto;
        if (dados.nivel == Nivel::Pais) {
            LocalNome = Mid(texto, 5);
            LocalCod = codigoAte(Nivel::Pais);
        }
        return;
    }
}

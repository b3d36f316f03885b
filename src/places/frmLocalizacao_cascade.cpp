// The walk down the levels: each combo fills the next.
#include "common/marca.h"
#include "common/modGeral.h"
#include "common/text.h"
#include "individuals/pedido.h"
#include "places/frmLocalizacao.h"

#include <algorithm>

namespace {

// The code above that of a place, with which its own begins: as its row has it, or else as long as its level has it.
QString acimaDe(Nivel nivel, const QString& codigo)
{
    const DadosDoNivel& dados = dadosDe(nivel);
    const jet::Recordset local(cnBDP, dados.superiorDe(codigo));
    const QString doRegisto = local.eof() ? QString() : local[0].toString();
    return !doRegisto.isEmpty() && codigo.startsWith(doRegisto) ? doRegisto : codigo.left(dados.inicio - 1);
}

} // namespace

void FrmLocalizacao::lista_Click(Nivel nivel)
{
    guarded([&] {
        desceAte(nivel);
        if (!codigoAte(nivel).isEmpty()) preencheAbaixo(nivel);
    });
}

// Clears and shuts what stands below a level: it belongs to the place that was chosen there before.
void FrmLocalizacao::desceAte(Nivel nivel)
{
    for (const DadosDoNivel& abaixo : niveis) {
        if (abaixo.nivel <= nivel) continue;
        codigos_[size_t(abaixo.nivel)].clear();
        lista(abaixo.nivel)->clear();
        lista(abaixo.nivel)->setEnabled(false);
        if (editor(abaixo.nivel)) editor(abaixo.nivel)->setEnabled(false);
    }
}

// Portugal alone has districts, all others zones, with nothing below them.
void FrmLocalizacao::preencheAbaixo(Nivel nivel)
{
    if (nivel == Nivel::Zona || nivel == Nivel::Sitio) return;
    if (nivel != Nivel::Pais) {
        const auto abaixo = Nivel(int(nivel) + 1);
        return preenche(abaixo, dadosDe(abaixo).locaisDe(codigoAte(nivel)));
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
    QStringList& codigos = codigos_[size_t(nivel)];
    lista(nivel)->add("  ");
    codigos << QString();
    for (jet::Recordset locais(cnBDP, instrucao); !locais.eof(); locais.moveNext()) {
        QString nome = locais[dados.nome].toString();
        if (editor(nivel)) nome = semMarca(nome); // the mark of the places that the researcher made
        codigos << locais[dados.codigo].toString();
        lista(nivel)->add(nome, Mid(codigos.last(), dados.inicio).toInt());
    }
}

void FrmLocalizacao::preenchePaises()
{
    for (jet::Recordset paises(cnBDP, "select codpais, nomepais from pais"); !paises.eof(); paises.moveNext()) {
        const QString codigo = paises["codpais"].toString();
        codigos_[size_t(Nivel::Pais)] << codigo;
        const int indice = cmbPais->add(codigo + " - " + paises["nomepais"].toString());
        if (codigo == "PT") cmbPais->setListIndex(indice);
    }
}

void FrmLocalizacao::escolheParoquiaDaBDP()
{
    if (!CodParoquia.isEmpty()) escolheAte(Nivel::Paroquia, CodParoquia, acimaDe(Nivel::Paroquia, CodParoquia));
}

// Chooses a country, which fills the list below it, also where it was chosen already.
bool FrmLocalizacao::escolhePais(const QString& codigo)
{
    if (indiceDe(Nivel::Pais, codigo) < 0) return false;
    cmbPais->setListIndex(-1);
    return escolhe(Nivel::Pais, codigo);
}

bool FrmLocalizacao::escolhe(Nivel nivel, const QString& codigo)
{
    const int indice = indiceDe(nivel, codigo);
    if (indice < 0 || !lista(nivel)->isEnabledTo(this)) return false;
    lista(nivel)->setListIndex(indice);
    return true;
}

// The entry of the place with that code; -1: none.
int FrmLocalizacao::indiceDe(Nivel nivel, const QString& codigo) const
{
    const QStringList& codigos = codigos_[size_t(nivel)];
    const auto igual = [&](const QString& outro) { return outro.compare(codigo, Qt::CaseInsensitive) == 0; };
    const auto onde = codigo.isEmpty() ? codigos.end() : std::ranges::find_if(codigos, igual);
    return onde == codigos.end() ? -1 : int(onde - codigos.begin());
}

// Chooses a place of Portugal under the places above it.
bool FrmLocalizacao::escolheAte(Nivel nivel, const QString& codigo, const QString& superior)
{
    if (nivel == Nivel::Distrito) return escolhe(nivel, codigo);
    const auto acima = Nivel(int(nivel) - 1);
    const QString maisAcima = acima == Nivel::Distrito ? QString() : acimaDe(acima, superior);
    return escolheAte(acima, superior, maisAcima) && escolhe(nivel, codigo);
}

void FrmLocalizacao::mostraLocal(Nivel nivel, const QString& codigo, const QString& superior)
{
    if (nivel == Nivel::Pais)
        escolhePais(codigo);
    else if (nivel == Nivel::Zona)
        escolhePais(superior) && escolhe(nivel, codigo);
    else if (escolhePais("PT"))
        escolheAte(nivel, codigo, superior);
}

QString FrmLocalizacao::codigoAte(Nivel nivel) const
{
    return codigos_[size_t(nivel)].value(lista(nivel)->listIndex());
}

// The deepest level with a place chosen.
void FrmLocalizacao::LocalEscolhido()
{
    for (auto nivel = niveis.rbegin(); nivel != niveis.rend(); ++nivel) {
        const DadosDoNivel& dados = *nivel;
        // Kept: it is the funeral's picker of persons that shuts the narrowest levels out.
        if (chamada().origem() == OrigemInd::PadreDoFuneral && dados.nivel >= Nivel::Lugar) continue;
        const QString codigo = codigoAte(dados.nivel);
        if (codigo.isEmpty()) continue;
        LocalTipo = dados.tipo;
        LocalNome = dados.nivel == Nivel::Pais ? Mid(lista(dados.nivel)->text(), 5) : lista(dados.nivel)->text();
        LocalCod = codigo;
        return;
    }
}

#include "store/lixo.h"

#include "common/numeros.h"
#include "platform/jet/jsonrow.h"
#include "platform/time/clock.h"
#include "store/lixo_actos.h"
#include "store/lixo_tabelas.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace lixo {

namespace {

constexpr auto formatoDaData = "yyyy-MM-dd HH:mm:ss";

QList<QJsonObject> comRowid(const jet::Connection& bdp, const Dependente& dependente, const QString& numero)
{
    return jet::jsonRows(
        bdp, jet::NativeSql(
                 QString("select rowid, * from %1 where %2 order by rowid").arg(dependente.tabela, dependente.condicao),
                 {numero.toDouble()}));
}

QString nomesDasPessoas(const jet::Connection& bdp, const jet::NativeSql& consulta)
{
    QStringList nomes;
    for (const QJsonObject& pessoa : jet::jsonRows(bdp, consulta))
        if (const QString nome = pessoa["nome"].toString().trimmed(); !nome.isEmpty()) nomes << nome;
    return nomes.join(" e ");
}

} // namespace

QString Eliminacao::designacao() const
{
    const QString quem = (tipo == Tipo::Familia ? "Família " : "Indivíduo ") + numero;
    return nome.isEmpty() ? quem : quem + " – " + nome;
}

Recolha::Recolha(jet::Connection& bdp, Tipo tipo, QString numero)
    : bdp_(bdp), tipo_(tipo), numero_(std::move(numero)), nome_(nome())
{
    for (const Dependente& dependente : dependentesDe(tipo))
        for (const QJsonObject& linha : comRowid(bdp, dependente, numero_))
            antes_ << QJsonObject{{"tabela", dependente.tabela}, {"valores", linha}};
}

QString Recolha::nome() const
{
    const auto pessoas = tipo_ == Tipo::Individuo ? "select nome from individuo where nind = ?"
                                                  : "select nome from individuo where nind in (select nind from "
                                                    "familias where nfamilia = ?) order by sexo desc";
    return nomesDasPessoas(bdp_, jet::NativeSql(pessoas, {numero_.toDouble()}));
}

// The rows that aren't there any more.
QJsonArray Recolha::eliminadas() const
{
    QJsonArray linhas;
    for (const QJsonValue linha : antes_) {
        const QString tabela = linha["tabela"].toString();
        const jet::NativeSql agora("select 1 as ha from " + tabela + " where rowid = ?",
                                   {linha["valores"]["rowid"].toInteger()});
        if (jet::jsonRows(bdp_, agora).isEmpty()) linhas << linha;
    }
    return linhas;
}

// Those who are still there, and have lost their family of origin.
QJsonArray Recolha::filhosSoltos() const
{
    QJsonArray filhos;
    for (const QJsonValue linha : antes_) {
        const QJsonValue valores = linha["valores"];
        if (linha["tabela"] != "individuo" || valores["famorig"].isNull()) continue;
        const jet::NativeSql agora("select famorig from individuo where rowid = ?", {valores["rowid"].toInteger()});
        const QList<QJsonObject> filho = jet::jsonRows(bdp_, agora);
        if (!filho.isEmpty() && filho.first()["famorig"].isNull())
            filhos << QJsonObject{{"nind", valores["nind"]}, {"famorig", valores["famorig"]}};
    }
    return filhos;
}

void Recolha::guarda()
{
    const QJsonArray linhas = eliminadas(), filhos = filhosSoltos();
    if (linhas.isEmpty() && filhos.isEmpty()) return;
    if (!temLixo(bdp_)) bdp_.execute(jet::NativeSql(criacao));
    QStringList familias;
    for (const QJsonValue linha : linhas)
        if (linha["tabela"] == "familia") familias << numeroDe(linha["valores"]["nfamilia"]);
    const QJsonDocument texto(QJsonObject{{"linhas", linhas}, {"filhos", filhos}});
    bdp_.execute(jet::NativeSql(
        "insert into estudo_lixo (quando, tipo, numero, nome, familias, linhas) values (?, ?, ?, ?, ?, ?)",
        {Clock::moment().toString(formatoDaData), letraDe(tipo_), numero_.toDouble(), nome_, familias.join(','),
         QString::fromUtf8(texto.toJson(QJsonDocument::Compact))}));
    const jet::NativeSql ultima("select max(id) as id from estudo_lixo");
    soltaDosActos(bdp_, jet::jsonRows(bdp_, ultima).first()["id"].toInteger(), linhas);
}

bool temLixo(jet::Connection& bdp)
{
    const QList<QJsonObject> colunas =
        jet::jsonRows(bdp, jet::NativeSql("select name from pragma_table_info('estudo_lixo')"));
    if (colunas.isEmpty()) return false;
    const QStringList nossas{"id", "quando", "tipo", "numero", "nome", "familias", "linhas"};
    const bool todas = std::ranges::all_of(nossas, [&](const QString& nossa) {
        return std::ranges::any_of(colunas, [&](const QJsonObject& coluna) {
            return coluna["name"].toString().compare(nossa, Qt::CaseInsensitive) == 0;
        });
    });
    if (todas && bdp.tables().contains("estudo_lixo", Qt::CaseInsensitive)) return true;
    throw jet::Error{
        jet::number::invalidStatement,
        "A tabela \"estudo_lixo\" desta BDP não é a dos registos eliminados: foi feita por outro programa. "
        "Nada foi alterado."};
}

jet::NativeSql consulta()
{
    return jet::NativeSql("select id, quando, tipo, numero, nome from estudo_lixo order by id desc");
}

Eliminacao eliminacao(const jet::Recordset& linha)
{
    return {.id = qint64(linha["id"].toDouble()),
            .quando = QDateTime::fromString(linha["quando"].toString(), formatoDaData),
            .tipo = linha["tipo"].toString() == letraDe(Tipo::Familia) ? Tipo::Familia : Tipo::Individuo,
            .numero = textoDoNumero(linha["numero"]),
            .nome = linha["nome"].toString()};
}

} // namespace lixo

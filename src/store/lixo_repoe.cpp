// Putting back what a deletion has taken.
#include "platform/jet/jsonrow.h"
#include "platform/jet/transaction.h"
#include "store/lixo_actos.h"
#include "store/lixo_tabelas.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <set>
#include <utility>

namespace lixo {

namespace {

using Registo = std::pair<Tipo, QString>; // a person or a family, by its number
using Registos = std::set<Registo>;

class Reposicao
{
public:
    Reposicao(jet::Connection& bdp, const QJsonObject& guardada) : bdp_(bdp), id_(guardada["id"].toInteger())
    {
        tipo_ = guardada["tipo"].toString() == letraDe(Tipo::Familia) ? Tipo::Familia : Tipo::Individuo;
        const QJsonObject texto = QJsonDocument::fromJson(guardada["linhas"].toString().toUtf8()).object();
        linhas_ = texto["linhas"].toArray();
        filhos_ = texto["filhos"].toArray();
        legivel_ = texto["linhas"].isArray() && texto["filhos"].isArray() &&
                   std::ranges::all_of(linhas_, [this](const QJsonValue& linha) { return legivel(linha); }) &&
                   std::ranges::all_of(filhos_, [](const QJsonValue& filho) {
                       return filho["nind"].isDouble() && filho["famorig"].isDouble();
                   });
    }

    // "" where nothing stands in the way.
    QString impedimento() const
    {
        if (!legivel_) return "O que ficou guardado desta eliminação não se consegue ler.";
        for (const auto procura : {&Reposicao::eliminadosDepois, &Reposicao::juntosDepois, &Reposicao::numerosOcupados,
                                   &Reposicao::familiasAlteradas, &Reposicao::filhosAlterados})
            if (const QString motivo = (this->*procura)(); !motivo.isEmpty()) return motivo;
        return {};
    }

    // "", or what stands in the way all the same.
    QString executa() const
    {
        for (const QJsonValue linha : linhas_) {
            const QString tabela = linha["tabela"].toString();
            try {
                jet::insertJsonRow(bdp_, tabela, noSeuLugar(tabela, linha["valores"].toObject()));
            } catch (const jet::Error& erro) {
                if (erro.number != jet::number::duplicateKey) throw;
                return erro.description;
            }
        }
        for (const QJsonValue filho : filhos_)
            bdp_.execute(jet::NativeSql("update individuo set famorig = ? where nind = ?",
                                        {filho["famorig"].toDouble(), filho["nind"].toDouble()}));
        ligaAosActos(bdp_, id_);
        bdp_.execute(jet::NativeSql("delete from estudo_lixo where id = ?", {id_}));
        return {};
    }

private:
    // Nothing but these tables is written to, whatever stands in the row.
    bool conhece(const QString& tabela) const
    {
        return std::ranges::any_of(dependentesDe(tipo_), [&](const auto& uma) { return uma.tabela == tabela; });
    }

    bool legivel(const QJsonValue& linha) const
    {
        const QJsonObject valores = linha["valores"].toObject();
        return conhece(linha["tabela"].toString()) && !valores.isEmpty() &&
               std::ranges::all_of(valores,
                                   [](const QJsonValue& valor) { return !valor.isArray() && !valor.isBool(); });
    }

    bool ha(const QString& consulta, const QVariantList& valores) const
    {
        return !jet::jsonRows(bdp_, jet::NativeSql(consulta, valores)).isEmpty();
    }

    // Rows without an order are shown in that of the tables: the row goes where it was, unless another is there.
    QJsonObject noSeuLugar(const QString& tabela, QJsonObject valores) const
    {
        if (ha("select 1 as ha from " + tabela + " where rowid = ?", {valores["rowid"].toInteger()}))
            valores.remove("rowid");
        return valores;
    }

    // Of the record itself and of the families that went with it.
    Registos repostos() const
    {
        Registos todos;
        for (const QJsonValue linha : linhas_) {
            if (linha["tabela"] == "individuo") todos.emplace(Tipo::Individuo, numeroDe(linha["valores"]["nind"]));
            if (linha["tabela"] == "familia") todos.emplace(Tipo::Familia, numeroDe(linha["valores"]["nfamilia"]));
        }
        return todos;
    }

    Registos referidos() const
    {
        Registos todos;
        for (const QJsonValue linha : linhas_)
            for (const Referencia& referencia : referencias()) {
                const QJsonValue valores = linha["valores"];
                const QString acto = valores["tipoacto"].toString();
                if (linha["tabela"] != referencia.tabela ||
                    (!referencia.tipoacto.isEmpty() && acto.compare(referencia.tipoacto, Qt::CaseInsensitive) != 0))
                    continue;
                todos.emplace(referencia.tipo, numeroDe(valores[referencia.coluna]));
            }
        for (const QJsonValue filho : filhos_)
            todos.emplace(Tipo::Individuo, numeroDe(filho["nind"]));
        for (const Registo& reposto : repostos())
            todos.erase(reposto);
        return todos;
    }

    // A link to a record that went later would lead nowhere, or to another one that has got its number. Only the later
    // ones are asked for: so none of two can wait for the other.
    QString eliminadosDepois() const
    {
        const Registos precisos = referidos();
        QStringList nomes;
        for (const QJsonObject& outra : jet::jsonRows(
                 bdp_, jet::NativeSql("select tipo, numero, nome, familias from estudo_lixo where id > ? order by id",
                                      {id_})))
        {
            Eliminacao depois;
            depois.tipo = outra["tipo"].toString() == letraDe(Tipo::Familia) ? Tipo::Familia : Tipo::Individuo;
            depois.numero = numeroDe(outra["numero"]);
            depois.nome = outra["nome"].toString();
            const QStringList familias = outra["familias"].toString().split(',', Qt::SkipEmptyParts);
            const bool preciso = precisos.contains({depois.tipo, depois.numero}) ||
                                 std::ranges::any_of(familias, [&](const QString& familia) {
                                     return precisos.contains({Tipo::Familia, familia});
                                 });
            if (preciso) nomes << depois.designacao();
        }
        if (nomes.isEmpty()) return {};
        return "Foi eliminado depois, e tem de ser reposto primeiro:\r\n" + nomes.join("\r\n");
    }

    // Records that a decision has taken away since have left their numbers to others: what would lead to them comes
    // back when they are there again.
    QString juntosDepois() const
    {
        const QStringList colunas{"id", "quando", "titulo", "alteradas", "linhas", "desfeita"};
        for (const QString& coluna : colunas)
            if (!ha("select 1 as ha from pragma_table_info('estudo_decisao') where lower(name) = ?", {coluna}))
                return {};
        const Registos precisos = referidos();
        QStringList titulos;
        for (const QJsonObject& decisao : jet::jsonRows(
                 bdp_,
                 jet::NativeSql("select titulo, linhas from estudo_decisao where desfeita is null and alteradas "
                                "> 0 and quando >= (select quando from estudo_lixo where id = ?) order by id desc",
                                {id_})))
            if (tira(QJsonDocument::fromJson(decisao["linhas"].toString().toUtf8()).array(), precisos))
                titulos << decisao["titulo"].toString();
        if (titulos.isEmpty()) return {};
        return "Foi decidido depois, e tem de ser desfeito primeiro:\r\n" + titulos.join("\r\n");
    }

    // Whether one of them went with these rows: one without a key is there no more.
    static bool tira(const QJsonArray& linhas, const Registos& precisos)
    {
        return std::ranges::any_of(linhas, [&](const QJsonValue& linha) {
            if (linha["chave"].isObject()) return false;
            if (linha["tabela"] == "individuo")
                return precisos.contains({Tipo::Individuo, numeroDe(linha["antes"]["nind"])});
            return linha["tabela"] == "familia" &&
                   precisos.contains({Tipo::Familia, numeroDe(linha["antes"]["nfamilia"])});
        });
    }

    QString numerosOcupados() const
    {
        for (const QJsonValue linha : linhas_) {
            const QJsonValue valores = linha["valores"];
            if (linha["tabela"] == "individuo") {
                const QList<QJsonObject> outro = jet::jsonRows(
                    bdp_, jet::NativeSql("select nome from individuo where nind = ?", {valores["nind"].toDouble()}));
                if (!outro.isEmpty())
                    return "O número " + numeroDe(valores["nind"]) + " já é de outro indivíduo, " +
                           outro.first()["nome"].toString() + ".";
            }
            if (linha["tabela"] == "familia" &&
                ha("select 1 as ha from familia where nfamilia = ?", {valores["nfamilia"].toDouble()}))
                return "O número " + numeroDe(valores["nfamilia"]) + " já é de outra família.";
        }
        return {};
    }

    // Of a family that loses members a deletion leaves none.
    QString familiasAlteradas() const
    {
        for (const QJsonValue linha : linhas_) {
            const QJsonValue familia = linha["valores"]["nfamilia"];
            if (linha["tabela"] == "familias" &&
                ha("select 1 as ha from familias where nfamilia = ?", {familia.toDouble()}))
                return "A família nº " + numeroDe(familia) + " já tem outros membros.";
        }
        return {};
    }

    QString filhosAlterados() const
    {
        for (const QJsonValue filho : filhos_) {
            const QList<QJsonObject> agora = jet::jsonRows(
                bdp_, jet::NativeSql("select famorig from individuo where nind = ?", {filho["nind"].toDouble()}));
            const QString quem = "O indivíduo nº " + numeroDe(filho["nind"]) + ", que era filho da família nº " +
                                 numeroDe(filho["famorig"]) + ", ";
            if (agora.isEmpty()) return quem + "já não existe.";
            if (const QString outra = numeroDe(agora.first()["famorig"]); !outra.isEmpty())
                return quem + "já tem outra família de origem, a nº " + outra + ".";
        }
        return {};
    }

    jet::Connection& bdp_;
    qint64 id_;
    Tipo tipo_;
    QJsonArray linhas_, filhos_;
    bool legivel_ = false;
};

} // namespace

QString repoe(jet::Connection& bdp, qint64 id)
{
    jet::Transaction transaccao(bdp);
    const QList<QJsonObject> guardadas =
        jet::jsonRows(bdp, jet::NativeSql("select id, tipo, linhas from estudo_lixo where id = ?", {id}));
    if (guardadas.isEmpty()) return "Esta eliminação já não está guardada na BDP.";
    const Reposicao reposicao(bdp, guardadas.first());
    if (const QString motivo = reposicao.impedimento(); !motivo.isEmpty()) return motivo;
    if (const QString motivo = reposicao.executa(); !motivo.isEmpty()) return motivo;
    transaccao.commit();
    return {};
}

} // namespace lixo

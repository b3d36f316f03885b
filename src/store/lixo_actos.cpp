#include "store/lixo_actos.h"

#include "platform/jet/jsonrow.h"

#include <QJsonObject>

#include <algorithm>

namespace lixo {

namespace {

struct Ligacao
{
    QString tabela;    // of the acts
    QString numero;    // its column of the link
    QString eliminado; // where the number stands as long as the record is deleted
    QString registo;   // the table of the record
    QString chave;
};

const QList<Ligacao>& ligacoes()
{
    static const QList<Ligacao> todas{
        {"estudo_pessoa", "nind", "nind_eliminado", "individuo", "nind"},
        {"estudo_familia", "nfamilia", "nfamilia_eliminada", "familia", "nfamilia"},
    };
    return todas;
}

// A table of that name that another program has made isn't touched.
bool tem(jet::Connection& bdp, const Ligacao& ligacao)
{
    const QList<QJsonObject> colunas = jet::jsonRows(
        bdp, jet::NativeSql("select count(*) as quantas from pragma_table_info(?1) where lower(name) in (?2, ?3, ?4)",
                            {ligacao.tabela, ligacao.numero, ligacao.eliminado, "eliminacao"}));
    return colunas.first()["quantas"].toInt() == 3;
}

} // namespace

void soltaDosActos(jet::Connection& bdp, qint64 eliminacao, const QJsonArray& linhas)
{
    for (const Ligacao& ligacao : ligacoes()) {
        if (!tem(bdp, ligacao)) continue;
        // Of a deletion that had this number and was taken out of the table by hand.
        bdp.execute(jet::NativeSql(QString("update %1 set eliminacao = null where eliminacao = ?").arg(ligacao.tabela),
                                   {eliminacao}));
        const QString solta = QString("update %1 set %3 = %2, %2 = null, eliminacao = ? where %2 = ?")
                                  .arg(ligacao.tabela, ligacao.numero, ligacao.eliminado);
        for (const QJsonValue linha : linhas)
            if (linha["tabela"] == ligacao.registo)
                bdp.execute(jet::NativeSql(solta, {eliminacao, linha["valores"][ligacao.chave].toDouble()}));
    }
}

void ligaAosActos(jet::Connection& bdp, qint64 eliminacao)
{
    for (const Ligacao& ligacao : ligacoes())
        if (tem(bdp, ligacao))
            bdp.execute(
                jet::NativeSql(QString("update %1 set %2 = %3, %3 = null, eliminacao = null where eliminacao = ?")
                                   .arg(ligacao.tabela, ligacao.numero, ligacao.eliminado),
                               {eliminacao}));
}

} // namespace lixo

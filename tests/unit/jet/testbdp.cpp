#include "jet/testbdp.h"

#include <QDate>
#include <QFile>

#include <sqlite3.h>

namespace jet::test {

namespace {

QString written(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return QStringLiteral("-");
    case QMetaType::QDate:
        return value.toDate().toString(QStringLiteral("dd/MM/yyyy"));
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("sim") : QStringLiteral("não");
    default:
        return value.toString();
    }
}

// The parish: José and Maria (family 1, two children), their daughter Ana with António (family 2), a widow alone
// (family 3).
constexpr const char* parish[]{
    "insert into individuo (nind, nome, tipo, sexo, datanasc, DnascFixa, localnasc, tipolocalnasc, filiacao) "
    "values (1, 'José da Silva', '1', 'm', #05/03/1720#, 1, '010101', 'F', 1)",
    "insert into individuo (nind, nome, tipo, sexo, datanasc, dataobito, localobito, tipolocalobito) "
    "values (2, 'Maria Ávila', '4', 'f', #12/13/1725#, #01/02/1800#, '01010101', 'L')",
    "insert into individuo (nind, nome, tipo, sexo, famorig, datanasc, dataobito, obs, testam) "
    "values (3, 'Ana', '4', 'f', 1, #03/05/1750#, #11/20/1790#, 'Faleceu de bexigas', true)",
    "insert into individuo (nind, nome, tipo, sexo, famorig, datanasc, primpadrebapt) "
    "values (4, 'Álvaro', '0', 'm', 1, #01/31/1748#, 5)",
    "insert into individuo (nind, nome, sexo) values (5, 'António', 'm')",
    "insert into individuo (nind, nome, sexo) values (6, 'Zulmira d''Além', 'f')",
    "insert into familia (nfamilia, sfamilia, tipocasal, datacasam, dcasamfixa, localcasam, tipolocalcasam, "
    "primpadrecasam) values (1, 1, '1', #02/01/1745#, 1, '010101', 'F', 5)",
    "insert into familia (nfamilia, sfamilia, tipocasal, datacasam) values (2, 2, '3', #06/24/1775#)",
    "insert into familia (nfamilia, sfamilia, tipocasal) values (3, 1, '7')",
    "insert into familias (nfamilia, nind, idade, estadocivil, numcasam) values (1, 1, 24, 1, 1)",
    "insert into familias (nfamilia, nind) values (1, 2)",
    "insert into familias (nfamilia, nind) values (2, 5)",
    "insert into familias (nfamilia, nind) values (2, 3)",
    "insert into familias (nfamilia, nind) values (3, 6)",
    "insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente, falecidopai) "
    "values ('b', 3, #03/05/1750#, 5, 'p', true)",
    "insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente) "
    "values ('c', 1, #02/01/1745#, 6, 't')",
    "insert into residencia (numero, tiporesid, dataref, datafixa, localresid, tipolocal, fonte) "
    "values (3, 'i', #07/08/1760#, 1, '01010101', 'L', 'rol')",
    "insert into residencia (numero, tiporesid, dataref, localresid, tipolocal) "
    "values (3, 'i', #01/02/1755#, '010101', 'F')",
    "insert into residencia (numero, tiporesid, dataref, localresid, tipolocal) "
    "values (1, 'f', #05/06/1746#, '010101', 'F')",
    "insert into profissao (codprof, profissao) values (1, '*Lavrador')",
    "insert into profissao (codprof, profissao) values (2, 'Ferreiro')",
    "insert into profissoes (nind, idprofissao, dataref, codprof) values (1, 1, #01/01/1760#, 2)",
    "insert into profissoes (nind, idprofissao, dataref, codprof) values (1, 2, #01/01/1750#, 1)",
    "insert into assinatura (nind, idassinatura, dataref, idade, nivelassinatura) values (1, 1, #01/01/1750#, 29, 2)",
    "insert into legadosprofanos (nind, idlegprof, nindherd, parentesco, bensmoveis) values (3, 1, 4, 2, 'Uma arca')",
    "insert into rituaismorte (nind, idlegpio, tipolegpio, tipo, quantidade, valorunit, tipoMoeda) "
    "values (3, 1, 'missa', 1, 10, 0.5, 'Re')",
    "insert into passaporte (nind, npass, dataref) values (4, 7, #03/04/1770#)",
    "insert into passaporte (nind, npass, dataref) values (4, 8, #03/04/1780#)",
    "insert into pais (codpais, nomepais, prioridade) values ('34', 'Espanha', 1)",
    "insert into pais (codpais, nomepais) values ('PT', 'Portugal')",
    "insert into zonapais (codzona, nomezona, codpais, tipo) values ('341', 'Galiza', '34', 1)",
    "insert into distrito (coddistrito, nomedistrito, codpais) values ('01', 'Aveiro', 'PT')",
    "insert into concelho (codconcelho, nomeconcelho, coddistrito) values ('0101', 'Águeda', '01')",
    "insert into paroquia (codparoquia, nomeparoquia, codconcelho, prioridade) values ('010101', 'Agadão', '0101', 2)",
    "insert into paroquia (codparoquia, nomeparoquia, codconcelho) values ('010102', 'Aguada de Baixo', '0101')",
    "insert into lugar (codlugar, nomelugar, codparoquia, prioridade) values ('01010101', '*Fonte', '010101', 1)",
    "insert into sitio (codsitio, nomesitio, codlugar) values ('0101010101', 'Eira', '01010101')",
    "insert into infopar (cod, nome, Pais) values ('010101', 'Agadão', 'PT')",
    "insert into infocomplementar (categoria, codigo, descricao) values ('EstCi', '1', 'Solteiro')",
    "insert into infocomplementar (categoria, codigo, descricao) values ('EstCi', '2', 'Casado')",
    "insert into infocomplementar (categoria, codigo, descricao) values ('EstCi', '10', '*Viúvo')",
    "insert into infocomplementar (categoria, codigo, descricao) values ('TipIn', 'T', 'Turista')",
    "insert into infocomplementar (categoria, codigo, descricao) values ('SitFa', '1', 'Legítima')",
    "insert into infocomplementar (categoria, codigo, descricao) values ('Paren', '2', 'Irmão')",
};

} // namespace

TestBdp::TestBdp()
{
    createDatabase(path());
    bdp.open(path());
    sqlite3_exec(bdp.handle(), "pragma synchronous = off", nullptr, nullptr, nullptr); // no test cuts the power
}

void TestBdp::outside(const QString& file, const char* sql)
{
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(file.toUtf8(), &database), SQLITE_OK);
    char* message = nullptr;
    EXPECT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, &message), SQLITE_OK) << sql << ": " << message;
    sqlite3_free(message);
    sqlite3_close(database);
}

std::string TestBdp::rows(Recordset& set)
{
    QStringList rows;
    for (; !set.eof(); set.moveNext()) {
        QStringList fields;
        for (int i = 0; i < set.fieldCount(); ++i)
            fields << written(set[i]);
        rows << fields.join(u'|');
    }
    return rows.join(u' ').toStdString();
}

int TestBdp::run(const char* statement, const QVariantList& values)
{
    const QString sql = QString::fromUtf8(statement);
    return values.isEmpty() ? bdp.execute(sql) : bdp.execute(NativeSql(sql, values));
}

Recordset TestBdp::select(const char* statement, const QVariantList& values)
{
    const QString sql = QString::fromUtf8(statement);
    return values.isEmpty() ? Recordset(bdp, sql) : Recordset(bdp, NativeSql(sql, values));
}

std::string TestBdp::rows(const char* statement, const QVariantList& values)
{
    Recordset set = select(statement, values);
    return rows(set);
}

ParishBdp::ParishBdp()
{
    QFile schema(QStringLiteral(ORV_DATA_DIR "/CriarTab.dat"));
    EXPECT_TRUE(schema.open(QIODevice::ReadOnly | QIODevice::Text));
    bdp.beginTrans();
    while (!schema.atEnd())
        bdp.execute(QString::fromLatin1(schema.readLine()).trimmed());
    for (const char* statement : parish)
        EXPECT_EQ(run(statement), 1) << statement;
    bdp.commitTrans();
}

void ParishBdp::expectRows(std::initializer_list<Query> queries)
{
    for (const Query& query : queries) {
        try {
            EXPECT_EQ(rows(query.statement, query.values), query.rows) << query.statement;
        } catch (const Error& error) {
            ADD_FAILURE() << query.statement << "\n" << error.number << " " << error.description.toStdString();
        }
    }
}

void ParishBdp::expectChanges(std::initializer_list<Change> changes)
{
    for (const Change& change : changes) {
        bdp.beginTrans();
        try {
            EXPECT_EQ(run(change.statement, change.values), change.rows) << change.statement;
            EXPECT_EQ(rows(change.check), change.then) << change.statement;
        } catch (const Error& error) {
            ADD_FAILURE() << change.statement << "\n" << error.number << " " << error.description.toStdString();
        }
        bdp.rollbackTrans();
    }
}

void ParishBdp::expectErrors(long number, std::initializer_list<const char*> statements)
{
    for (const char* statement : statements) {
        const bool query = QByteArray(statement).toLower().startsWith("select");
        const long got = query ? numberOf([&] { select(statement); }) : numberOf([&] { run(statement); });
        EXPECT_EQ(got, number) << statement;
    }
}

} // namespace jet::test

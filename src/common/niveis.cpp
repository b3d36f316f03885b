#include "common/niveis.h"

#include <algorithm>

const std::array<DadosDoNivel, numNiveis> niveis{{
    {Nivel::Pais, "P", "País", "pais", "codpais", "nomepais", nullptr, 0},
    {Nivel::Zona, "Z", "Zona", "zonapais", "codzona", "nomezona", "codpais", 3},
    {Nivel::Distrito, "D", "Distrito", "distrito", "coddistrito", "nomedistrito", "codpais", 1},
    {Nivel::Concelho, "C", "Concelho", "concelho", "codconcelho", "nomeconcelho", "coddistrito", 3},
    {Nivel::Paroquia, "F", "Paroquia", "paroquia", "codparoquia", "nomeparoquia", "codconcelho", 5},
    {Nivel::Lugar, "L", "Lugar", "lugar", "codlugar", "nomelugar", "codparoquia", 7},
    {Nivel::Sitio, "S", "Sitio", "sitio", "codsitio", "nomesitio", "codlugar", 9},
}};

jet::NativeSql DadosDoNivel::locaisDaLista() const
{
    return jet::NativeSql(QString("select %1, %2 from %3 where prioridade <> 0").arg(codigo, nome, tabela));
}

jet::NativeSql DadosDoNivel::nomeDe(const QString& codigoDoLocal) const
{
    return jet::NativeSql(QString("select %1 from %2 where %3 = ?").arg(nome, tabela, codigo), {codigoDoLocal});
}

jet::NativeSql DadosDoNivel::superiorDe(const QString& codigoDoLocal) const
{
    return jet::NativeSql(QString("select %1 from %2 where %3 = ?").arg(superior, tabela, codigo), {codigoDoLocal});
}

jet::NativeSql DadosDoNivel::locais() const
{
    return jet::NativeSql(QString("select * from %1").arg(tabela));
}

jet::NativeSql DadosDoNivel::locaisDe(const QString& codigoSuperior) const
{
    return jet::NativeSql(QString("select * from %1 where %2 = ?").arg(tabela, superior), {codigoSuperior});
}

jet::NativeSql DadosDoNivel::marca(const QString& codigoDoLocal, Prioridade prioridade) const
{
    return jet::NativeSql(QString("update %1 set prioridade = ? where %2 = ?").arg(tabela, codigo),
                          {int(prioridade), codigoDoLocal});
}

const DadosDoNivel& dadosDe(Nivel nivel)
{
    return niveis[size_t(nivel)];
}

const DadosDoNivel* nivelDaLetra(const QString& tipo)
{
    const auto nivel =
        std::ranges::find_if(niveis, [&](const DadosDoNivel& n) { return tipo == QLatin1String(n.tipo); });
    return nivel == niveis.end() ? nullptr : &*nivel;
}

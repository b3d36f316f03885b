#include "store/lixo_tabelas.h"

#include "common/numeros.h"

namespace lixo {

const QList<Dependente>& dependentesDe(Tipo tipo)
{
    static const QList<Dependente> doIndividuo{
        {"individuo", "nind = ?1 or famorig in (select nfamilia from familias where nind = ?1)"},
        {"familia", "nfamilia in (select nfamilia from familias where nind = ?1)"},
        {"familias", "nfamilia in (select nfamilia from familias where nind = ?1)"},
        {"residencia", "tiporesid = 'i' and numero = ?1"},
        {"profissoes", "nind = ?1"},
        {"legadosprofanos", "nind = ?1"},
        {"rituaismorte", "nind = ?1"},
        {"assinatura", "nind = ?1"},
        {"assistente", "nind = ?1 or (tipoacto = 'b' and entidade = ?1)"},
        {"passaporte", "nind = ?1"},
    };
    static const QList<Dependente> daFamilia{
        {"individuo", "famorig = ?1"},
        {"familia", "nfamilia = ?1"},
        {"familias", "nfamilia = ?1"},
        {"residencia", "tiporesid = 'f' and numero = ?1"},
        {"assistente", "tipoacto = 'c' and entidade = ?1"},
    };
    return tipo == Tipo::Familia ? daFamilia : doIndividuo;
}

const QList<Referencia>& referencias()
{
    static const QList<Referencia> todas{
        {"individuo", "famorig", Tipo::Familia},          {"familias", "nind", Tipo::Individuo},
        {"familias", "nfamilia", Tipo::Familia},          {"assistente", "nind", Tipo::Individuo},
        {"assistente", "entidade", Tipo::Individuo, "b"}, {"assistente", "entidade", Tipo::Familia, "c"},
    };
    return todas;
}

QString numeroDe(const QJsonValue& valor)
{
    return valor.isNull() || valor.isUndefined() ? QString() : textoDoNumero(valor.toDouble());
}

} // namespace lixo

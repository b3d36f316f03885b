#include "places/usosDoLocal.h"

#include "platform/jet/recordset.h"
#include "store/session.h"

#include <QStringList>

namespace {

struct Quem
{
    const char* um;
    const char* varios;
    const char* tabela;
    QList<std::pair<const char*, const char*>> pares; // columns of a code and of its letter
};

const QList<Quem>& todos()
{
    static const QList<Quem> lista{
        {"indivíduo", "indivíduos", "individuo", {{"localnasc", "tipolocalnasc"}, {"localobito", "tipolocalobito"}}},
        {"família", "famílias", "familia", {{"localcasam", "tipolocalcasam"}}},
        {"residência", "residências", "residencia", {{"localresid", "tipolocal"}}},
        {"passaporte", "passaportes", "passaporte", {{"localdestino", "tipolocaldest"}}}};
    return lista;
}

// A record that names the place twice is one.
jet::NativeSql contagem(const Quem& quem, const DadosDoNivel& nivel, const QString& codigo)
{
    QStringList condicoes;
    QVariantList valores;
    for (const auto& [coluna, letra] : quem.pares) {
        condicoes << QString("(%1 = ? and upper(%2) = ?)").arg(coluna, letra);
        valores << codigo << QString(nivel.tipo);
    }
    return jet::NativeSql(QString("select count(*) from %1 where ").arg(quem.tabela) + condicoes.join(" or "), valores);
}

class Contas
{
public:
    void junta(const jet::NativeSql& contagem, const char* um, const char* varios)
    {
        const int quantos = jet::Recordset(cnBDP, contagem)[0].toInt();
        if (quantos > 0) partes_ << contados(quantos, um, varios);
        total_ += quantos;
    }
    QString texto() const
    {
        if (total_ == 0) return {};
        return contados(total_, "registo", "registos") + " (" + partes_.join(", ") + ")";
    }

private:
    static QString contados(int quantos, const char* um, const char* varios)
    {
        return QString::number(quantos) + " " + QString::fromUtf8(quantos == 1 ? um : varios);
    }

    QStringList partes_;
    int total_ = 0;
};

} // namespace

QString usosDoLocal(const DadosDoNivel& nivel, const QString& codigo)
{
    Contas contas;
    for (const Quem& quem : todos())
        contas.junta(contagem(quem, nivel, codigo), quem.um, quem.varios);
    if (nivel.nivel == Nivel::Lugar)
        contas.junta(jet::NativeSql("select count(*) from sitio where codlugar = ?", {codigo}), "sítio", "sítios");
    return contas.texto();
}

#include "common/listasAbertas.h"

#include "platform/forms/forms.h"

namespace ListasAbertas {

namespace {

QList<Lista> locais, codigos, profissoes;

void junta(QList<Lista>& listas, Lista lista)
{
    listas.removeIf([](const Lista& outra) { return outra.combo.isNull(); });
    listas << std::move(lista);
}

QList<Lista> abertas(const QList<Lista>& listas)
{
    QList<Lista> abertas;
    for (const Lista& lista : listas)
        if (lista.combo && Forms::loaded().contains(lista.janela)) abertas << lista;
    return abertas;
}

} // namespace

void segueLocais(Form& janela, ComboBox& lista)
{
    junta(locais, {&janela, &lista});
}

void segueCodigos(Form& janela, ComboBox& lista, const QString& categoria, std::function<bool()> quando)
{
    junta(codigos, {&janela, &lista, categoria, std::move(quando)});
}

void segueProfissoes(Form& janela, ComboBox& lista)
{
    junta(profissoes, {&janela, &lista});
}

QList<Lista> deLocais()
{
    return abertas(locais);
}

QList<Lista> deCodigos()
{
    return abertas(codigos);
}

QList<Lista> deProfissoes()
{
    return abertas(profissoes);
}

} // namespace ListasAbertas

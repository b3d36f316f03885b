#include "common/escolhido.h"

#include "common/campos.h"
#include "common/dono.h"
#include "common/text.h"

bool escolhidoExiste(TextBox* campo, const QString& antes)
{
    const QString numero = Trim(campo->text());
    if (numero.isEmpty() || numero == antes) return true;
    Dono escolhido;
    escolhido.numero = numero;
    if (escolhido.guardado()) return true;
    return recusa("O indivíduo nº " + numero + " já não existe na base de dados, e nada foi gravado.", campo);
}

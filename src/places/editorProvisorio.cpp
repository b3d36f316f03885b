#include "places/editorProvisorio.h"

#include "common/ficha.h"
#include "common/marca.h"
#include "common/text.h"
#include "places/usosDoLocal.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"

#include <algorithm>

void EditorProvisorio::carrega()
{
    CodSup = frmLocalizacao().codigoAte(nivelSuperior_);
    EditorDeLocais::carrega();
    soOlhou_ = true;
}

void EditorProvisorio::mostraLinha()
{
    EditorDeLocais::mostraLinha();
    soOlhou_ = false;
}

void EditorProvisorio::Form_Unload()
{
    if (!Forms::isUnloadingAll() && Forms::isLoaded(FrmLocalizacao::Name))
        frmLocalizacao().retomaDoEditor(nivelSuperior_, txtCod_->text(), soOlhou_);
}

// The code is the program's matter.
const QList<ModeRow>& EditorProvisorio::modos() const
{
    using enum Effect;
    static const QList<ModeRow> tabela{
        // control   Edi                     Cons
        {"txtNome", {Open, corDoModo::edi}, {Shut, corDoModo::cons}},
        {"txtObs", {Open, corDoModo::edi}, {Shut, corDoModo::cons}},
    };
    return tabela;
}

QString EditorProvisorio::nomeAGravar() const
{
    return comMarca(semMarca(txtNome_->text()));
}

bool EditorProvisorio::provisorio(const QString& mensagem)
{
    if (temMarca(valor(nivel().nome))) return true;
    showMessage(mensagem);
    return false;
}

void EditorProvisorio::elimina()
{
    if (posiciona() && provisorio("Não é possível eliminar este registo!")) EditorDeLocais::elimina();
}

void EditorProvisorio::exigeQueNinguemUse(const QString& codigo) const
{
    const QString usos = usosDoLocal(nivel(), codigo);
    if (!usos.isEmpty())
        throw jet::Error{jet::number::notUpdatable, "Não é possível eliminar este registo: é usado por " + usos + "."};
}

// The number behind the code of the place above, however long that is; in a code that has another one before it, the
// number at the place of the level.
qlonglong EditorProvisorio::numeroDe(const QString& codigo) const
{
    const int inicio = codigo.startsWith(CodSup) ? int(CodSup.size()) + 1 : nivel().inicio;
    return Mid(codigo, inicio).toLongLong();
}

// A longer code above may have taken the next one already, as site 101 of locality 10 is site 01 of locality 101.
QString EditorProvisorio::proximoCodigo() const
{
    qlonglong numero = 0;
    for (jet::Recordset linhas(cnBDP, nivel().locaisDe(CodSup)); !linhas.eof(); linhas.moveNext())
        numero = std::max(numero, numeroDe(linhas[nivel().codigo].toString()));
    QString codigo;
    do
        codigo = CodSup + QString::number(++numero).rightJustified(2, '0');
    while (!jet::Recordset(cnBDP, nivel().nomeDe(codigo)).eof());
    return codigo;
}

#include "places/editorProvisorio.h"

#include "common/ficha.h"
#include "common/marca.h"
#include "common/numeros.h"
#include "common/text.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"

#include <cmath>

void EditorProvisorio::carrega()
{
    CodSup = frmLocalizacao().codigoAte(nivelSuperior_);
    EditorDeLocais::carrega();
}

void EditorProvisorio::Form_Unload()
{
    if (!Forms::isUnloadingAll() && Forms::isLoaded(FrmLocalizacao::Name))
        frmLocalizacao().retomaDoEditor(nivelSuperior_);
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

// Kept: the last row of the order of texts. "100" stands before "99", so that behind 99 the same code comes again.
QString EditorProvisorio::proximoCodigo()
{
    double ultimo = 0;
    if (registos_->hasRows()) {
        registos_->recordset().moveLast();
        ultimo = std::floor(numeroDoTexto(Mid(valor(nivel().codigo), nivel().inicio)));
    }
    return CodSup + textoDoNumero(ultimo + 1).rightJustified(2, '0');
}

#include "common/dono.h"

#include "platform/forms/forms.h"

void JanelaDoDono::abre(const QString& nome, const Dono& dono)
{
    if (Form* aberta = Forms::find(nome)) return aberta->display();
    Form* janela = Forms::load(nome, [&dono](Form& nova) { static_cast<JanelaDoDono&>(nova).dono_ = dono; });
    if (!janela) return;
    static_cast<JanelaDoDono*>(janela)->dono_.registo = nullptr;
    janela->display();
}

#include "study/windows/frmDefinicoes.h"

#include "common/modGeral.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "study/indicators/settingsJson.h"
#include "study/windows/frmIndicadores.h"
#include "study/windows/studySettingsText.h"

#include <algorithm>

using namespace study;

FrmDefinicoes::FrmDefinicoes() : Form(Name)
{
    setupUi(this);
    books_ = {Book{txtLivroDe_0, txtLivroAte_0, txtLacunas_0}, Book{txtLivroDe_1, txtLivroAte_1, txtLacunas_1},
              Book{txtLivroDe_2, txtLivroAte_2, txtLacunas_2}, Book{txtLivroDe_3, txtLivroAte_3, txtLacunas_3}};
    opensOn(nullptr, txtPeriodo_0); // and not on its pages
    fillLists();
    const auto on = [this](CommandButton* button, void (FrmDefinicoes::*handler)()) {
        connect(button, &CommandButton::clicked, this, [this, handler] { guarded([&] { (this->*handler)(); }); });
    };
    on(cmdGravar, &FrmDefinicoes::cmdGravar_Click);
    on(cmdPadrao, &FrmDefinicoes::cmdPadrao_Click);
    on(cmdAcrescentar, &FrmDefinicoes::cmdAcrescentar_Click);
    on(cmdTirar, &FrmDefinicoes::cmdTirar_Click);
    on(cmdCausa, &FrmDefinicoes::cmdCausa_Click);
    on(cmdTirarCausa, &FrmDefinicoes::cmdTirarCausa_Click);
    connect(cmdFechar, &CommandButton::clicked, this, [this] { unload(); });
    connect(txtCodigo, &TextBox::returnPressed, this, [this] { guarded([this] { cmdAcrescentar_Click(); }); });
    connect(txtCausa, &TextBox::returnPressed, this, [this] { guarded([this] { cmdCausa_Click(); }); });
    connect(cmbFreguesia, &ComboBox::clicked, this,
            [this] { txtCodigo->setText(cmbFreguesia->text().section(' ', 0, 0)); });
    connect(cmbConta, &ComboBox::clicked, this, &FrmDefinicoes::cmbConta_Click);
    connect(dtgFiliacoes->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &FrmDefinicoes::dtgFiliacoes_Change);
}

void FrmDefinicoes::Form_Load()
{
    guarded([&] {
        kept_ = indicators::keptSettings(cnBDP);
        readFiliations();
        readParishes();
    });
    showSettings(kept_);
}

bool FrmDefinicoes::Form_QueryUnload(UnloadMode mode)
{
    if (mode == UnloadMode::Application || !isTyped()) return true;
    if (!askWhetherToStore("Deseja gravar as definições que alterou?")) return true;
    bool stored = false; // where they couldn't be kept
    guarded([&] { stored = store(); });
    return stored || Forms::isUnloadingAll(); // left standing, they would be stored in the next BDP
}

bool FrmDefinicoes::isTyped() const
{
    Problem problem;
    const auto now = typed(problem);
    return !now || *now != kept_;
}

bool FrmDefinicoes::store()
{
    Problem problem;
    const auto next = typed(problem);
    if (!next) {
        showMessage(problem.told +
                    (Forms::isUnloadingAll() ? " As definições que alterou não foram gravadas nesta BDP." : ""));
        Focus::setTo(problem.field);
        return false;
    }
    indicators::keepSettings(cnBDP, *next);
    kept_ = *next;
    showSettings(kept_);
    FrmIndicadores::settingsChanged();
    showStatus("As definições dos indicadores foram gravadas nesta BDP.");
    return true;
}

void FrmDefinicoes::cmdGravar_Click()
{
    store();
}

// As typed: what is kept stays until it is stored.
void FrmDefinicoes::cmdPadrao_Click()
{
    const QString list = kept_.baptisms.empty() ? "" : " A lista de nascimentos e baptismos não é alterada.";
    if (!ask("Deseja que todas as definições fiquem como no início? Só ficam gravadas com \"Gravar\"." + list)) return;
    showSettings({});
    Focus::setTo(cmdGravar);
}

void FrmDefinicoes::cmdAcrescentar_Click()
{
    const QString code = txtCodigo->text().trimmed();
    if (nameOfParish(code).isEmpty()) {
        showMessage("Não há freguesia com o código \"" + code + "\"!");
        return Focus::setTo(txtCodigo);
    }
    if (!neighbours_.contains(code)) neighbours_ << code;
    txtCodigo->clear();
    showNeighbours();
    lstVizinhas->setListIndex(static_cast<int>(neighbours_.indexOf(code)));
    Focus::setTo(txtCodigo);
}

void FrmDefinicoes::cmdTirar_Click()
{
    const int chosen = lstVizinhas->listIndex();
    if (chosen < 0 || chosen >= neighbours_.size()) return;
    neighbours_.removeAt(chosen);
    showNeighbours();
    lstVizinhas->setListIndex(std::min(chosen, static_cast<int>(neighbours_.size()) - 1));
}

void FrmDefinicoes::dtgFiliacoes_Change()
{
    const int row = dtgFiliacoes->row();
    const bool isCode = row >= 1 && row <= static_cast<int>(codes_.size());
    cmbConta->setEnabled(isCode);
    const QSignalBlocker quiet(cmbConta);
    if (!isCode) return cmbConta->setListIndex(-1);
    const int code = codes_[static_cast<std::size_t>(row) - 1].code;
    cmbConta->setListIndex(filiations_.contains(code) ? static_cast<int>(filiations_.value(code)) + 1 : 0);
}

void FrmDefinicoes::cmbConta_Click()
{
    const int row = dtgFiliacoes->row(), entry = cmbConta->listIndex();
    if (row < 1 || row > static_cast<int>(codes_.size()) || entry < 0) return;
    const int code = codes_[static_cast<std::size_t>(row) - 1].code;
    if (entry == 0)
        filiations_.remove(code);
    else
        filiations_.insert(code, static_cast<indicators::Legitimacy>(entry - 1));
    showFiliations();
}

#include "study/windows/frmLimites.h"

#include "common/modGeral.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "store/session.h"
#include "study/windows/frmContradicoes.h"

#include <QShortcut>
#include <QSignalBlocker>

#include <algorithm>

using namespace study;
using checks::Setting;

FrmLimites::FrmLimites() : Form(Name)
{
    setupUi(this);
    opensOn(dtgRegras, cmdFechar);
    connect(dtgRegras->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &FrmLimites::dtgRegras_Click);
    connect(chkPerguntar, &QCheckBox::clicked, this, [this] { guarded([this] { storeTyped(); }); });
    connect(txtValor, &TextBox::returnPressed, this, &FrmLimites::cmdGravar_Click);
    connect(txtValor, &TextBox::textEdited, this, [this] { cmdGravar->setEnabled(isTyped()); });
    connect(cmdGravar, &CommandButton::clicked, this, &FrmLimites::cmdGravar_Click);
    connect(cmdPadrao, &CommandButton::clicked, this, &FrmLimites::cmdPadrao_Click);
    connect(cmdTodos, &CommandButton::clicked, this, &FrmLimites::cmdTodos_Click);
    connect(cmdFechar, &CommandButton::clicked, this, [this] { unload(); });
}

void FrmLimites::Form_Load()
{
    guarded([&] { settings_ = checks::keptSettings(cnBDP); });
    fillGrid();
    showSetting();
}

bool FrmLimites::Form_QueryUnload(UnloadMode mode)
{
    if (mode == UnloadMode::Application) return true;
    bool leaves = false; // where what is typed couldn't be kept
    guarded([&] { leaves = leavesTyped(); });
    return leaves || Forms::isUnloadingAll(); // what was typed is not for the next BDP
}

void FrmLimites::fillGrid()
{
    const auto& all = checks::allSettings();
    const bool bare = dtgRegras->rows() == 0;
    const int count = static_cast<int>(all.size());
    const int row = dtgRegras->row();
    const QSignalBlocker quiet(dtgRegras->selectionModel());
    dtgRegras->setRows(count + 1);
    if (bare) dtgRegras->setColumns({{"Regra", 60}, {"O que se mede", 420}, {"Valor", 80}, {"Inicial"}});
    dtgRegras->fill(count + 1, [this, &all](int each) -> QStringList {
        const Setting& setting = all.at(size_t(each) - 1);
        const bool isLimit = setting.kind == Setting::Kind::Number && !setting.rule.isEmpty();
        return {isLimit ? QString() : setting.rule, (isLimit ? "    " : "") + setting.title,
                inWords(setting, valueOf(settings_, setting)), inWords(setting, setting.standard)};
    });
    dtgRegras->setRow(std::clamp(row, 1, count));
    dtgRegras->viewport()->update();
    const auto altered = std::ranges::count_if(
        all, [&](const Setting& setting) { return valueOf(settings_, setting) != setting.standard; });
    lblTotal->setText(altered == 0   ? QString("Tudo está como no início.")
                      : altered == 1 ? QString("1 valor alterado.")
                                     : QString::number(altered) + " valores alterados.");
    cmdTodos->setEnabled(altered > 0);
}

const Setting* FrmLimites::shownSetting() const
{
    const auto& all = checks::allSettings();
    return shown_ < 1 || shown_ > static_cast<int>(all.size()) ? nullptr : &all[size_t(shown_) - 1];
}

void FrmLimites::showSetting()
{
    shown_ = dtgRegras->row();
    const Setting* setting = shownSetting();
    const bool isSwitch = setting && setting->kind == Setting::Kind::Switch;
    const bool isNumber = setting && !isSwitch;
    const double value = setting ? valueOf(settings_, *setting) : 0;
    chkPerguntar->setEnabled(isSwitch);
    chkPerguntar->setChecked(isSwitch && value != 0);
    txtValor->setEnabled(isNumber);
    txtValor->setText(setting && !isSwitch ? inWords(*setting, value) : QString());
    cmdGravar->setEnabled(false);
    cmdPadrao->setEnabled(setting && value != setting->standard);
}

bool FrmLimites::isTyped() const
{
    const Setting* setting = shownSetting();
    return setting && setting->kind == Setting::Kind::Number &&
           txtValor->text() != inWords(*setting, valueOf(settings_, *setting));
}

// Another line is chosen: what was typed for the one before is asked about first.
void FrmLimites::dtgRegras_Click()
{
    guarded([&] {
        if (dtgRegras->row() == shown_) return;
        try {
            if (leavesTyped()) return showSetting();
        } catch (const jet::Error&) {
            backToShown();
            throw;
        }
        backToShown();
    });
}

void FrmLimites::backToShown()
{
    const QSignalBlocker quiet(dtgRegras->selectionModel());
    dtgRegras->setRow(shown_);
    dtgRegras->viewport()->update();
}

bool FrmLimites::leavesTyped()
{
    if (!isTyped()) return true;
    const int wanted = dtgRegras->row();
    if (!askWhetherToStore("Deseja gravar o valor \"" + txtValor->text() + "\" de \"" + shownSetting()->title + "\"?"))
        return true;
    const bool stored = storeTyped();
    if (stored) {
        const QSignalBlocker quiet(dtgRegras->selectionModel());
        dtgRegras->setRow(wanted);
    }
    return stored;
}

bool FrmLimites::storeTyped()
{
    const Setting* setting = shownSetting();
    if (!setting) return true;
    checks::Settings next = settings_;
    if (setting->kind == Setting::Kind::Switch) {
        setValue(next, *setting, chkPerguntar->isChecked() ? 1 : 0);
    } else {
        const std::optional<double> value = checks::numberFrom(txtValor->text());
        if (!value) {
            showMessage("Deve inserir um número maior ou igual a 0!");
            Focus::setTo(txtValor);
            return false;
        }
        setValue(next, *setting, *value);
    }
    store(next);
    return true;
}

// The fields show what is kept, also where it couldn't be; a number that is typed stays, to be stored again.
void FrmLimites::store(const checks::Settings& next)
{
    try {
        checks::keepSettings(cnBDP, next);
    } catch (const jet::Error&) {
        if (!isTyped()) showSetting();
        throw;
    }
    settings_ = next;
    fillGrid();
    showSetting();
    FrmContradicoes::settingsChanged();
    showStatus("As regras e os limites foram gravados nesta BDP.");
}

void FrmLimites::cmdGravar_Click()
{
    guarded([&] {
        if (isTyped() && storeTyped()) Focus::setTo(dtgRegras);
    });
}

void FrmLimites::cmdPadrao_Click()
{
    guarded([&] {
        const Setting* setting = shownSetting();
        if (!setting) return;
        checks::Settings next = settings_;
        setValue(next, *setting, setting->standard);
        store(next);
        Focus::setTo(dtgRegras);
    });
}

void FrmLimites::cmdTodos_Click()
{
    guarded([&] {
        if (!ask("Deseja que todas as regras e todos os limites fiquem como no início?")) return;
        store({});
        Focus::setTo(dtgRegras);
    });
}

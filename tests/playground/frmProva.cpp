#include "frmProva.h"

#include "common/splashForm.h"
#include "platform/desktop/desktop.h"
#include "platform/forms/controls.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "platform/jet/error.h"
#include "platform/time/clock.h"

#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <chrono>
#include <cstdlib>
#include <stdexcept>

namespace {

template <class Control>
Control* put(QWidget* page, const char* name)
{
    auto* control = new Control(page);
    control->setObjectName(name);
    page->layout()->addWidget(control);
    return control;
}

} // namespace

FrmProva::FrmProva() : Form("frmProva")
{
    setCaption("Prova");
    auto* tabs = new QTabWidget(this);
    tabs->setObjectName("SST");
    (new QVBoxLayout(this))->addWidget(tabs);
    for (const char* caption : {"ca&Mpos", "&Listas", "&Comandos"}) {
        auto* page = new QWidget;
        page->setObjectName(QStringLiteral("pagina%1").arg(tabs->count()));
        new QVBoxLayout(page);
        tabs->addTab(page, caption);
    }
    addFields(tabs->widget(0));
    addLists(tabs->widget(1));
    addCommands(tabs->widget(2));
}

void FrmProva::addFields(QWidget* page)
{
    auto* name = put<TextBox>(page, "txtNome");
    put<TextBox>(page, "txtFechado")->setLocked(true);
    put<TextBox>(page, "txtInactivo")->setEnabled(false);
    put<TextBox>(page, "txtOculto")->hide();
    put<MaskedEdit>(page, "mskData");
    put<MemoBox>(page, "txtObs");
    auto* refused = put<TextBox>(page, "txtRecusa");
    put<QLabel>(page, "lblEstado");
    put<QLabel>(page, "lblSaltos");
    setBackColor(name, QColor(192, 192, 255));

    Focus::watch(refused, {}, [this, refused] {
        if (refused->text() != "mal") return;
        refused->clear();
        say("Recusado!");
        Focus::setTo(refused);
    });

    auto* frame = put<QGroupBox>(page, "fraSexo");
    frame->setTitle("&Sexo");
    new QVBoxLayout(frame);
    put<OptionButton>(frame, "optSexo_0")->setText("M");
    put<OptionButton>(frame, "optSexo_1")->setText("F");
    put<QCheckBox>(page, "chkMenor")->setText(" Menor?");
}

void FrmProva::addLists(QWidget* page)
{
    auto* combo = put<ComboBox>(page, "cmbLoc");
    combo->add("  ");
    combo->add("Braga", 3);
    combo->add("Guimarães", 8);
    combo->add("Braga", 4);
    connect(combo, &ComboBox::clicked, this, [this, combo] {
        findChild<QLabel*>("lblEstado")->setText(QString::number(combo->itemData(combo->listIndex())));
    });
    auto* locked = put<ComboBox>(page, "cmbFechado");
    locked->add("Braga");
    locked->setLocked(true);

    auto* list = put<ListBox>(page, "lstLocal");
    list->add("Fafe", 1);
    list->add("Vizela", 2);

    auto* grid = put<Grid>(page, "dtgFilho");
    grid->setCols(2);
    grid->setRows(3);
    for (const auto& [row, number, child] :
         {std::tuple(0, "Nº", "Nome"), std::tuple(1, "1", "Ana"), std::tuple(2, "2", "Rui")})
    {
        grid->setTextMatrix(row, 0, number);
        grid->setTextMatrix(row, 1, child);
    }
    connect(grid, &Grid::picked, this,
            [this, grid] { findChild<QLabel*>("lblEstado")->setText(grid->textMatrix(grid->row(), 1)); });
    put<Grid>(page, "dtgVazia");

    auto* view = put<QTreeWidget>(page, "LV");
    view->setColumnCount(2);
    view->setHeaderLabels({"Nome", "Tipo"});
    view->addTopLevelItem(new QTreeWidgetItem(QStringList{"Braga", "Distrito"}));
    view->addTopLevelItem(new QTreeWidgetItem(QStringList{"Fafe", "Concelho"}));
    connect(view, &QTreeWidget::itemDoubleClicked, this,
            [this](QTreeWidgetItem* item) { findChild<QLabel*>("lblEstado")->setText(item->text(0)); });

    auto* tree = put<QTreeWidget>(page, "tvw");
    auto* root = new QTreeWidgetItem(tree, QStringList{"Ana"});
    new QTreeWidgetItem(root, QStringList{"Rui"});
    new QTreeWidgetItem(new QTreeWidgetItem(root, QStringList{"Eva"}), QStringList{"Gil"});
}

void FrmProva::addCommands(QWidget* page)
{
    command(page, "cmdConta", [this] {
        findChild<QLabel*>("lblEstado")->setText(QString::number(++clicks_));
        findChild<CommandButton*>("cmdConta")->setText(QStringLiteral("&Conta %1").arg(clicks_));
    });
    command(page, "cmdDiz", [this] { say("Primeira\r\nlinha"); });
    command(page, "cmdDuas", [this] {
        say("Uma");
        showMessage("Outra", Icon::None, "");
    });
    command(page, "cmdErro", [] { showMessage("Ocorreu o erro 53\r\nNão há ficheiro.", Icon::Information); });
    command(page, "cmdPergunta", [this] {
        const bool yes = ask("Sim ou não?");
        findChild<QLabel*>("lblEstado")->setText(yes ? "sim" : "não");
    });
    command(page, "cmdAbre", [this] { findChild<QLabel*>("lblEstado")->setText(openFileName("BDP (*.orv)|*.orv")); });
    command(page, "cmdGrava", [this] { findChild<QLabel*>("lblEstado")->setText(saveFileName("BDP (*.orv)|*.orv")); });
    command(page, "cmdCorreio", [] { Desktop::openUrl("mailto:orv@example.org?Body=a b"); });
    command(page, "cmdDialogo", [] {
        QDialog dialog;
        dialog.setWindowTitle("Outro");
        dialog.exec();
    });
    command(page, "cmdEspera", [this] {
        splashForm().showStep("A esperar");
        splashForm().waitUntilReady();
        splashForm().unload();
        findChild<QLabel*>("lblEstado")->setText("esperado");
        const auto skipped = Clock::now() - std::chrono::steady_clock::now(); // that no one has waited for
        findChild<QLabel*>("lblSaltos")
            ->setText(QStringLiteral("%1 s").arg(std::chrono::round<std::chrono::seconds>(skipped).count()));
    });
    command(page, "cmdDesliga", [this] { setEnabled(false); });
    command(page, "cmdSai", [] { std::_Exit(3); });
    command(page, "cmdErroSolto", [] { throw jet::Error{5, "Solto"}; });
    command(page, "cmdFalha", [] { throw std::runtime_error("broken"); });
    command(page, "cmdAborta", [] { std::abort(); });
    command(page, "cmdPreso", [] {
        for (;;) {
        }
    });
}

void FrmProva::command(QWidget* page, const char* name, std::function<void()> routine)
{
    auto* button = put<CommandButton>(page, name);
    button->setText(name);
    connect(button, &CommandButton::clicked, this, std::move(routine));
}

void FrmProva::say(const QString& text)
{
    showMessage(text);
}

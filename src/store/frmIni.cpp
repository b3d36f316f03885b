#include "store/frmIni.h"

#include "common/instrucao.h"
#include "common/modGeral.h"
#include "common/pedidoDeLocal.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "store/modBD.h"
#include "store/sessionChange.h"
#include "ui_frmIni.h"

#include <QScopedValueRollback>

static bool temIndividuos()
{
    return !jet::Recordset(cnBDP, "select nind from individuo where nind = (select min(nind) from individuo)").eof();
}

FrmIni::FrmIni() : Form(Name), ui(std::make_unique<Ui::FrmIni>())
{
    ui->setupUi(this);
    connect(ui->txtLoc, &QLineEdit::textChanged, this, &FrmIni::txtLoc_Change);
    connect(ui->cmdLoc, &QPushButton::clicked, this, &FrmIni::cmdLoc_Click);
    connect(ui->txtParoquia, &QLineEdit::textChanged, this, &FrmIni::txtParoquia_Change);
    connect(ui->Command1, &QPushButton::clicked, this, &FrmIni::Command1_Click);
    connect(ui->cmdOk, &QPushButton::clicked, this, &FrmIni::cmdOk_Click);
    connect(ui->cmdC, &QPushButton::clicked, this, &FrmIni::cmdC_Click);
}

FrmIni::~FrmIni() = default;

void FrmIni::Form_Load()
{
    setCaption(OperacaoBDP == "a" ? "Abrir BDP" : OperacaoBDP == "c" ? "Criar BDP" : "BDP");
    dizOQueSeSegue();
}

void FrmIni::dizOQueSeSegue()
{
    if (!ui->txtParoquia->text().isEmpty())
        dica_.tell("Carregue em \"OK\" para trabalhar nesta BDP.");
    else if (!ui->txtLoc->text().isEmpty())
        dica_.tell("Carregue no botão \"...\" da paróquia (Alt+P) e escolha a paróquia desta BDP.");
    else if (OperacaoBDP == "c")
        dica_.tell("Carregue no botão \"...\" da localização (Alt+L) e diga em que pasta fica a BDP, e com que nome.");
    else
        dica_.tell("Carregue no botão \"...\" da localização (Alt+L) e escolha o ficheiro da BDP.");
}

bool FrmIni::Form_QueryUnload(UnloadMode mode)
{
    return mode != UnloadMode::ControlMenu && !fica_;
}

// Kept: neither change ever disables anything.
void FrmIni::txtLoc_Change()
{
    if (!ui->txtLoc->text().isEmpty()) ui->Command1->setEnabled(true);
    dizOQueSeSegue();
}

void FrmIni::txtParoquia_Change()
{
    if (!ui->txtParoquia->text().isEmpty()) ui->cmdOk->setEnabled(true);
    dizOQueSeSegue();
}

void FrmIni::cmdLoc_Click()
{
    guarded([&] {
        if (OperacaoBDP == "c")
            escolheNovaBDP();
        else
            escolheBDP();
    });
}

void FrmIni::escolheBDP()
{
    ui->txtLoc->setText(openFileName(bdpFilter));
    if (ui->txtLoc->text().isEmpty()) return;

    deixaBDP();
    if (AbreBDP(ui->txtLoc->text())) esqueceParoquia();
    jet::Recordset registos(cnBDP, "select cod, nome, pais from infopar");
    if (registos.eof()) return;
    CodParoquia = requiredText(registos["cod"]);
    CodPais = registos["Pais"].isNull() ? "PT" : registos["Pais"].toString();
    ui->txtParoquia->setText(requiredText(registos["Nome"]));
}

void FrmIni::escolheNovaBDP()
{
    ui->txtLoc->setText(saveFileName(bdpFilter));
    if (ui->txtLoc->text().isEmpty()) return;

    deixaBDP();
    CriaBDP(ui->txtLoc->text());
    if (!AbreBDP(ui->txtLoc->text())) {
        showMessage("Por alguma razão não foi possível criar a BDP!", Icon::Critical);
        unload();
        return;
    }
    esqueceParoquia();
}

void FrmIni::limpaSessao()
{
    const QScopedValueRollback fica(fica_, true);
    clearSession();
}

// Before the connection goes to another file: a card of the one before would work on the new one.
void FrmIni::deixaBDP()
{
    limpaSessao();
    setSessionCaption(shortTitle);
}

// The parish of one file is never stored in another.
void FrmIni::esqueceParoquia()
{
    CodParoquia.clear();
    CodPais.clear();
    ui->txtParoquia->clear();
}

void FrmIni::Command1_Click()
{
    guarded([&] {
        // A picker left open for the cards offers more than parishes.
        if (Form* aberta = Forms::find("frmLocalizacao")) aberta->unload();
        // The picker sets CodParoquia and CodPais itself.
        pedeLocal(
            {OrigemLoc::BDP, this, [this](const QString& nome, const Local&) { ui->txtParoquia->setText(nome); }});
    });
}

void FrmIni::cmdOk_Click()
{
    guarded([&] {
        const QString nome = ui->txtParoquia->text();
        if (nome.isEmpty()) { // cleared, which leaves the button on
            showMessage("Deve seleccionar uma paróquia!");
            Focus::setTo(ui->Command1);
            return;
        }
        if (cnBDP.state() == jet::Connection::Open) setSessionMenus(true);
        setSessionCaption(longTitle + nome);
        semPlica(nome); // Kept: such a parish can't be confirmed; nothing is written then.
        cnBDP.beginTrans();
        cnBDP.execute("delete from infopar");
        cnBDP.execute(
            jet::NativeSql("insert into infopar (cod, nome, pais) values (?, ?, ?)", {CodParoquia, nome, CodPais}));
        cnBDP.execute(jet::NativeSql("update paroquia set prioridade = 2 where codparoquia = ? collate orv_nocase",
                                     {CodParoquia}));
        cnBDP.commitTrans();
        limpaSessao();
        CarregaFichaFam();
        if (!temIndividuos())
            showStatus("Esta BDP ainda não tem ninguém. No menu \"BDParoquial\" escolha \"Indivíduos\" (Ctrl+I), e na ficha "
                       "carregue em \"Inserir\".");
        unload();
    });
}

// Kept: cancelling a creation leaves the connection and the menus alone; cancelling an opening closes an open
// connection but leaves the menus on.
void FrmIni::cmdC_Click()
{
    guarded([&] {
        if (OperacaoBDP != "c") {
            const bool aberta = cnBDP.state() == jet::Connection::Open;
            setSessionMenus(aberta);
            if (aberta) deixaBDP();
            cnBDP.close();
        }
        unload();
    });
}

// The main window: document area, menus, status bar.
#pragma once

#include <QMainWindow>

#include <memory>

namespace Ui {
class FrmORV;
}

// Its close box asks nothing and offers no backup: it ends the program, with whatever is pending rolled back.
class FrmORV : public QMainWindow
{
    Q_OBJECT

public:
    FrmORV();
    ~FrmORV() override;

    // Opens the BDP that the command line names and shows its card; without one, the menu items of a session stay off.
    void Form_Load(const QString& commandLine);

protected:
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;

private:
    void mnuAbrir_Click();
    void MnuNova_Click();
    void mnuEditInd_Click();
    void mnuEditFam_Click();
    void mnuPass_Click();
    void mnuLocPar_Click();
    void mnuConcelhos_Click();
    void mnuCProf_Click();
    void mnuCInfo_Click();
    void mnuBack_Click();
    void mnupais_Click();
    void mnuProf_Click();
    void mnuCategorias_Click();
    void mnuRelInd_Click();
    void mnuActo_Click();
    void mnuActos_Click();
    void mnuTranscricoes_Click();
    void mnuContradicoes_Click();
    void mnuTipos_Click();
    void mnuLigacoes_Click();
    void mnuJuntar_Click();
    void mnuDecisoes_Click();
    void mnuIndicadores_Click();
    void mnuExportar_Click();
    void mnuImportar_Click();
    void mnuRepor_Click();
    void mnuComo_Click();
    void mnuTut_Click();
    void mnuAcerca_Click();
    void mnuAjudaJanela_Click();
    void mnuDemo_Click();
    void mnuSair_Click();

    void showCredits(); // in the status bar
    void connectMenus();
    void connectStartPanel();
    void switchOffItems();
    void mudaBDP(const QString& operacao);

    std::unique_ptr<Ui::FrmORV> ui;
};

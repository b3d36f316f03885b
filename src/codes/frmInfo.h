// The codes of the complementary information: the small coded lists of the cards.
#pragma once

#include "common/editorDeTabela.h"
#include "common/registoVisto.h"
#include "platform/jet/recordset.h"
#include "store/session.h"

#include "ui_frmInfo.h"

#include <QString>

// Adds codes to a category, and alters and deletes those that were added, which a "*" at the head of their description
// marks; the fixed ones are protected. When it closes, the coded lists of the open forms follow.
class FrmInfo : public EditorDeTabela, private Ui::FrmInfo
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmInfo";

    FrmInfo();

protected:
    void Form_Load() override;
    void Form_Unload() override;

    void abreInsercao() override;
    void confirmaInsercao() override;
    bool podeAlterar() override;
    void abreAlteracao() override;
    void confirmaAlteracao() override;
    void elimina() override;
    void terminaEdicao() override;
    void mostraLinha() override;

private:
    void preencheCategorias();
    void cmbCat_Click();
    void dtgInfo_Click();
    void fechaCampos();
    static void abreCampo(TextBox& campo, bool aberto); // the colour shows it
    void PreencheFG();
    void propoeCodigo();
    void escreve();
    QString categoria() const;
    bool provisoria(const QString& mensagemSeFixa);
    bool descricaoEmFalta(bool comIcone);

    jet::DataControl adoInfo{cnBDP};
    RegistoVisto visto_; // the row shown
    QString Chave;       // code of the row to stand on after the grid was filled again; "" for the first one
};

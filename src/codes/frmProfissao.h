// The catalogue of professions.
#pragma once

#include "common/editorDeTabela.h"
#include "common/registoVisto.h"
#include "platform/jet/recordset.h"
#include "store/session.h"

#include "ui_frmProfissao.h"

#include <QString>

// Adds, alters and deletes professions. What is written here is marked with a "*" as the researcher's own, but the mark
// protects nothing. When it closes, the list of an open frmProf follows.
class FrmProfissao : public EditorDeTabela, private Ui::FrmProfissao
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmProfissao";

    FrmProfissao();

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
    void mostraEstado(bool edicao); // by the colour of the fields
    void lstProf_Click();
    void propoeCodigo();
    bool designacaoRecusada(const QString& mensagemSeFalta);
    QString codigoDaLinha();
    int entradaDaLinha(); // index in lstProf

    jet::DataControl adoProf{cnBDP};
    RegistoVisto vista_; // the row shown
    QString Chave;       // codprof of the row to stand on; "" for the current one
};

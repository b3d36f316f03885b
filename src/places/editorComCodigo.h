// The pattern of the editors of districts, municipalities and parishes, whose codes the user types.
#pragma once

#include "places/editorDeLocais.h"

#include <QStringList>

#include <utility>

// The user types the level's own digits, which are written behind the code of the place above. That one is chosen in a
// list, which also filters the rows; districts have none.
class EditorComCodigo : public EditorDeLocais
{
    Q_OBJECT

public:
    using EditorDeLocais::EditorDeLocais;

protected:
    struct Codigo
    {
        int algarismos;
        QString emFalta; // what the user is told
        QString repetido;
    };

    // Precondition: usa() has run, and this hasn't.
    void usaCodigo(Codigo codigo, ComboBox* superiores = nullptr);

    // A select of the rows with that code.
    virtual QString instrucaoDoCodigo(const QString& codigo) const = 0;

    // Fills the list of the places above with the rows left of the cursor (code, then name), and chooses the first.
    // Without any there is nothing to edit.
    void preencheSuperiores(jet::Recordset& linhas);

    QString superior() const override;
    QString codigoAGravar() const override;
    bool VerificaCampos(Passo passo) override;
    QWidget* primeiroCampo() const override { return txtCod_; }

private:
    void superiores_Click();

    Codigo codigo_{};
    ComboBox* superiores_ = nullptr;
    QStringList codigosSuperiores_; // of its entries: a text of one doesn't tell where the code begins
};

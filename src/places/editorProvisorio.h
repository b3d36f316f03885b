// The pattern of the editors of the places that the researcher makes: zones, localities and sites.
#pragma once

#include "places/editorDeLocais.h"
#include "places/frmLocalizacao.h"

// Opened from the picker, which waits disabled. The place above is the one that the picker shows. What is written here
// has a "*" before its name; a row without it is a reference row, and can't be deleted.
class EditorProvisorio : public EditorDeLocais
{
    Q_OBJECT

public:
    EditorProvisorio(const QString& nome, Nivel nivelSuperior) : EditorDeLocais(nome), nivelSuperior_(nivelSuperior) {}

protected:
    QString CodSup; // the code of the place above

    // Whether the current row is the researcher's own; of a reference row the user is told.
    bool provisorio(const QString& mensagem);
    // The code with the number behind the greatest one under the place above.
    QString proximoCodigo() const;

    QString superior() const override { return CodSup; }
    QString nomeAGravar() const override;
    const QList<ModeRow>& modos() const override;
    void elimina() override;
    void exigeQueNinguemUse(const QString& codigo) const override;
    void fecha() override { unload(); }
    void mostraLinha() override;
    void carrega() override;
    void Form_Unload() override;

private:
    qlonglong numeroDe(const QString& codigo) const;

    Nivel nivelSuperior_;
    bool soOlhou_ = false; // no row was shown but the one on which the editor opens
};

// What is set for the indicators of a BDP.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"
#include "study/indicators/settings.h"

#include "ui_frmDefinicoes.h"

#include <QMap>
#include <QStringList>

#include <array>
#include <optional>
#include <vector>

// Shows what is kept in the BDP; of the list of baptisms only how long it is: it stays as it is. What is typed is kept
// as a whole, where all of it can be meant; what can't is told, with the field in front, and nothing is lost. What was
// typed and not stored is asked about when the window is closed.
class FrmDefinicoes : public Form, private Ui::FrmDefinicoes
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmDefinicoes";

    FrmDefinicoes();

protected:
    void Form_Load() override;
    bool Form_QueryUnload(UnloadMode mode) override;

private:
    // A code of the filiation, as the BDP describes it.
    struct Filiation
    {
        int code = 0;
        QString description = {};
    };
    // What can't be meant, and where it is typed.
    struct Problem
    {
        QString told = {};
        QWidget* field = nullptr;
    };

    void fillLists();
    void readFiliations(); // throws jet::Error
    void readParishes();   // throws jet::Error
    void showSettings(const study::indicators::Settings& settings);
    void showBooks(const study::indicators::Settings& settings);
    void showNeighbours();
    void showFiliations();
    // frmDefinicoes_notes.cpp: the words of the notes and of the causes, and the series
    void fillCauses();
    void showNotes(const study::indicators::Settings& settings);
    void showCauses();
    bool takeNotes(study::indicators::Settings& into, Problem& problem) const;
    void cmdCausa_Click();
    void cmdTirarCausa_Click();

    // What is typed, where it can be meant; otherwise the first problem is told.
    std::optional<study::indicators::Settings> typed(Problem& problem) const;
    bool takeLevel(int& into, TextBox* field, const QString& what, Problem& problem) const;
    bool takeNumbers(study::indicators::Settings& into, Problem& problem) const;
    bool takeBooks(study::indicators::Settings& into, Problem& problem) const;
    bool isTyped() const; // otherwise than kept
    bool store();         // false where it can't be meant; throws jet::Error

    void cmdGravar_Click();
    void cmdPadrao_Click();
    void cmdAcrescentar_Click();
    void cmdTirar_Click();
    void dtgFiliacoes_Change();
    void cmbConta_Click();
    QString nameOfParish(const QString& code) const; // "" for an unknown one; throws jet::Error

    struct Book
    {
        TextBox* first;
        TextBox* last;
        TextBox* gaps;
    };
    std::array<Book, 4> books_ = {}; // by Series
    study::indicators::Settings kept_;
    QStringList neighbours_;
    QHash<int, study::indicators::Legitimacy> filiations_;
    QMap<QString, QString> causes_; // as Settings has them, in the order of the list
    std::vector<Filiation> codes_;
};

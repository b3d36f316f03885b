// Acts that were transcribed elsewhere are brought into the BDP.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"
#include "platform/time/clock.h"
#include "study/windows/transcription.h"

#include "ui_frmTranscricoes.h"

#include <QMap>

#include <memory>

// The files chosen, the rule for linking, and for tables what each column holds. A rehearsal tells what an import would
// do and changes nothing; an import copies the BDP first and stores each file whole or not at all. Both show how far
// they are; meanwhile nothing acts but their cancel and Escape. Nothing is imported while a card edits or searches.
class FrmTranscricoes : public Form, private Ui::FrmTranscricoes
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmTranscricoes";

    FrmTranscricoes();

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    struct File
    {
        QString path;
        std::optional<study::CellTable> sheet = {}; // of a table, as it was when it was chosen
    };
    // What columns mean, for all files with these headers.
    struct Columns
    {
        study::Assignment assignment;
        bool altered = false; // by the user, and not kept yet
    };

    void lstFich_Click();
    void cmdJuntar_Click();
    void cmdRetirar_Click();
    void dtgCol_Click();
    void cmbCampo_Click();
    void cmbEspecie_Click();
    void txtLivro_Change();
    void cmdEnsaio_Click();
    void cmdImportar_Click();
    void cmdFechar_Click();

    void add(const QString& path);
    const File* chosenFile() const;
    void showFile();

    void fillChoices();
    void proposeColumns(const QStringList& headers); // throws jet::Error
    Columns* chosenColumns();                        // of the table chosen; null for none
    void showColumns();
    void showAssignment(const Columns& columns);
    QStringList cellsOfColumn(int row) const;
    void keepAlteredColumns();            // in the BDP; throws jet::Error
    void keepColumnsOf(const File& file); // the same
    void altered(Columns& columns);

    study::ImportOptions options() const;
    QString whyNotReady(); // "", or what the user has to do first
    void work(study::Occasion occasion);
    // What each file holds by now goes its way; `copy` gets the path of the copy of the BDP, once one was made.
    QList<study::FileOutcome> workOnFiles(study::Occasion occasion, QString& copy);
    bool workOn(File& file, study::FileOutcome& outcome, study::Occasion occasion, QString& copy);
    study::Transcript transcriptOf(File& file); // throws jet::Error
    bool goesOn(int done, int all);             // shows how far it is

    QList<File> files_;
    QMap<QStringList, Columns> columns_;          // by the headers
    std::unique_ptr<study::Rehearsal> rehearsal_; // while one is under way
    QString doing_;                               // what is
    bool reportStands_ = false;                   // on what was tried, until another file is added
    Clock::Time shownAt_;                         // when it was shown last how far it is
};

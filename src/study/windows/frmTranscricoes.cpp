#include "study/windows/frmTranscricoes.h"

#include "common/modGeral.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "platform/forms/msgbox.h"
#include "study/windows/cards.h"

#include <QDir>
#include <QFileDialog>

#include <algorithm>

using namespace study;

namespace {

// Several files at once, unlike the dialog of the cards.
QStringList chosenFiles()
{
    QFileDialog dialog(Forms::mainWindow(), "Juntar transcrições");
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setFileMode(QFileDialog::ExistingFiles);
    dialog.setNameFilters({"Transcrições (*.cli *.txt *.csv *.tsv)", "Todos os ficheiros (*)"});
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles() : QStringList();
}

} // namespace

FrmTranscricoes::FrmTranscricoes() : Form(Name)
{
    setupUi(this);
    QSizePolicy keepsItsRoom = barra->sizePolicy();
    keepsItsRoom.setRetainSizeWhenHidden(true);
    barra->setSizePolicy(keepsItsRoom);
    barra->hide(); // an empty bar looks like a field to be filled in
    opensOn(lstFich, cmdJuntar);
    connect(lstFich, &ListBox::currentRowChanged, this, &FrmTranscricoes::lstFich_Click);
    connect(cmdJuntar, &CommandButton::clicked, this, &FrmTranscricoes::cmdJuntar_Click);
    connect(cmdRetirar, &CommandButton::clicked, this, &FrmTranscricoes::cmdRetirar_Click);
    connect(dtgCol->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &FrmTranscricoes::dtgCol_Click);
    connect(cmbCampo, &ComboBox::clicked, this, &FrmTranscricoes::cmbCampo_Click);
    connect(cmbEspecie, &ComboBox::clicked, this, &FrmTranscricoes::cmbEspecie_Click);
    connect(txtLivro, &TextBox::textEdited, this, &FrmTranscricoes::txtLivro_Change);
    connect(cmdEnsaio, &CommandButton::clicked, this, &FrmTranscricoes::cmdEnsaio_Click);
    connect(cmdImportar, &CommandButton::clicked, this, &FrmTranscricoes::cmdImportar_Click);
    connect(cmdFechar, &CommandButton::clicked, this, &FrmTranscricoes::cmdFechar_Click);
}

void FrmTranscricoes::Form_Load()
{
    fillChoices();
    showFile();
}

// What the user has told of columns is kept for the next time, also where nothing was imported.
void FrmTranscricoes::Form_Unload()
{
    if (!Forms::isUnloadingAll()) guarded([&] { keepAlteredColumns(); });
}

void FrmTranscricoes::cmdJuntar_Click()
{
    guarded([&] {
        for (const QString& path : chosenFiles())
            add(path);
    });
}

// A file that can't be read is told of, and isn't put on the list.
void FrmTranscricoes::add(const QString& path)
{
    const auto same = std::ranges::find(files_, path, &File::path);
    if (same != files_.end()) return lstFich->setListIndex(static_cast<int>(same - files_.begin()));
    File file{.path = path};
    const QByteArray bytes = bytesOf(path);
    if (isTable(path)) {
        file.sheet = readSheet(bytes);
        proposeColumns(file.sheet->headers);
    }
    files_ << file;
    reportStands_ = false;
    lblEstado->setText({});
    lstFich->add(QDir::toNativeSeparators(path));
    lstFich->setListIndex(static_cast<int>(files_.size()) - 1);
    showFile();
}

void FrmTranscricoes::cmdRetirar_Click()
{
    guarded([&] {
        const int row = lstFich->listIndex();
        if (row < 0) return;
        files_.removeAt(row);
        lstFich->removeItem(row);
        lstFich->setListIndex(std::min(row, static_cast<int>(files_.size()) - 1));
        showFile();
        if (files_.isEmpty()) Focus::setTo(cmdJuntar);
    });
}

void FrmTranscricoes::lstFich_Click()
{
    guarded([&] { showFile(); });
}

const FrmTranscricoes::File* FrmTranscricoes::chosenFile() const
{
    const int row = lstFich->listIndex();
    return row >= 0 && row < files_.size() ? &files_[row] : nullptr;
}

void FrmTranscricoes::showFile()
{
    const bool any = !files_.isEmpty();
    cmdRetirar->setEnabled(chosenFile() != nullptr);
    cmdEnsaio->setEnabled(any);
    cmdImportar->setEnabled(any);
    showColumns();
    const File* file = chosenFile();
    if (!file || !file->sheet || reportStands_) return;
    QStringList told = problemLines(file->sheet->problems, 50);
    if (const QString doubt = doubtOfEncoding(file->sheet->encoding); !doubt.isEmpty()) told << doubt;
    if (!told.isEmpty()) txtRel->setText(QDir::toNativeSeparators(file->path) + "\r\n" + told.join("\r\n"));
}

ImportOptions FrmTranscricoes::options() const
{
    return {.rule = optLigar_1->isChecked() ? LinkRule::CouplesWithOpenSpan : LinkRule::Nothing,
            .newPlaces = chkLocais->isChecked(),
            .newProfessions = chkProf->isChecked(),
            .newPriests = chkPadres->isChecked(),
            .overruling = txtRazao->text().trimmed()};
}

void FrmTranscricoes::cmdEnsaio_Click()
{
    guarded([&] { work(Occasion::Rehearsal); });
}

void FrmTranscricoes::cmdImportar_Click()
{
    guarded([&] {
        if (const QString busy = whyCardsAreBusy(); !busy.isEmpty()) return showMessage(busy);
        if (!whyNotReady().isEmpty()) return work(Occasion::Import);
        const QString files =
            files_.size() == 1 ? QString("este ficheiro") : "estes " + QString::number(files_.size()) + " ficheiros";
        if (!askWhetherToStore("Deseja importar " + files + " para a BDP? Antes é guardada uma cópia de segurança."))
            return;
        work(Occasion::Import);
    });
}

void FrmTranscricoes::cmdFechar_Click()
{
    unload();
}

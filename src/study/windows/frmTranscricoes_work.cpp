// The rehearsal and the import of the files chosen.
#include "study/windows/frmTranscricoes.h"

#include "platform/forms/longwork.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/statusline.h"
#include "platform/time/clock.h"
#include "store/session.h"
#include "study/transcripts/kleio.h"
#include "study/windows/cards.h"
#include "study/windows/frmActos.h"
#include "study/windows/pauses.h"
#include "study/windows/underWay.h"

#include <QFileInfo>

#include <algorithm>
#include <chrono>

using namespace study;

namespace {

} // namespace

// The table is chosen in which something is missing.
QString FrmTranscricoes::whyNotReady()
{
    for (qsizetype i = 0; i < files_.size(); ++i) {
        const File& file = files_[i];
        if (!file.sheet || !columns_.contains(file.sheet->headers)) continue; // one without headers is damaged
        const QString missing = whyNotAssigned(file.sheet->headers, columns_[file.sheet->headers].assignment);
        if (missing.isEmpty()) continue;
        lstFich->setListIndex(static_cast<int>(i));
        return QFileInfo(file.path).fileName() + ": " + missing;
    }
    return {};
}

void FrmTranscricoes::work(Occasion occasion)
{
    if (const QString missing = whyNotReady(); !missing.isEmpty()) return showMessage(missing);
    QString copy;
    const QList<FileOutcome> outcomes = workOnFiles(occasion, copy);
    const QString summary = summaryOf(outcomes, occasion);
    txtRel->setText(reportOn(outcomes, occasion, copy));
    lblEstado->setText(summary);
    reportStands_ = true;
    if (occasion == Occasion::Rehearsal) return;
    showStatus(summary);
    showOnCards();
    FrmActos::showStoredIfOpen();
}

QList<FileOutcome> FrmTranscricoes::workOnFiles(Occasion occasion, QString& copy)
{
    const UnderWay underWay(*barra, *cmdCancelar);
    QList<FileOutcome> outcomes;
    outcomes.reserve(files_.size());
    rehearsal_.reset(); // files are rehearsed one after the other on one copy, as they will be imported
    bool goes = true;
    for (File& file : files_) {
        outcomes << FileOutcome{.path = file.path};
        if (goes)
            goes = workOn(file, outcomes.last(), occasion, copy);
        else
            outcomes.last().failure = "Não chegou a ser a sua vez.";
    }
    rehearsal_.reset();
    return outcomes;
}

// False where the next file isn't to be tried: the work was given up, or the store has failed.
bool FrmTranscricoes::workOn(File& file, FileOutcome& outcome, Occasion occasion, QString& copy)
{
    const bool rehearsal = occasion == Occasion::Rehearsal;
    doing_ = (rehearsal ? "A ensaiar " : "A importar ") + QFileInfo(file.path).fileName();
    Transcript transcript;
    try {
        transcript = transcriptOf(file);
    } catch (const jet::Error& error) {
        outcome.failure = error.description;
        return true;
    }
    outcome.problems = transcript.problems;
    if (transcript.isDamaged()) return true;
    const auto progress = [this](int done, int all) { return goesOn(done, all); };
    try {
        if (!rehearsal && copy.isEmpty()) copy = copyBeforeImport(cnBDP);
        if (rehearsal && !rehearsal_) rehearsal_ = std::make_unique<Rehearsal>(cnBDP);
        outcome.report = rehearsal ? rehearsal_->play(transcript, options(), progress)
                                   : importActs(cnBDP, transcript, options(), progress);
        if (!rehearsal && file.sheet && !outcome.report->cancelled) keepColumnsOf(file);
        return !outcome.report->cancelled;
    } catch (const jet::Error& error) {
        outcome.failure = error.description;
        return false;
    }
}

// Read anew: the file may be another one since it was chosen.
Transcript FrmTranscricoes::transcriptOf(File& file)
{
    const QByteArray bytes = bytesOf(file.path);
    if (!file.sheet) return readKleio(bytes);
    CellTable sheet = readSheet(bytes);
    const bool otherHeaders = sheet.headers != file.sheet->headers;
    file.sheet = std::move(sheet);
    if (otherHeaders) {
        proposeColumns(file.sheet->headers);
        showColumns();
        throw jet::Error(jet::number::invalidCall, "As colunas do ficheiro são outras desde que foi escolhido: veja o "
                                                   "que cada uma tem.");
    }
    Transcript damaged;
    damaged.problems = file.sheet->problems;
    if (damaged.isDamaged()) return damaged;
    return actsOf(*file.sheet, columns_[file.sheet->headers].assignment);
}

bool FrmTranscricoes::goesOn(int done, int all)
{
    if (done > 0 && done < all && Clock::now() - shownAt_ < betweenLooks) return true;
    shownAt_ = Clock::now();
    barra->setRange(0, std::max(all, 1));
    barra->setValue(done);
    lblEstado->setText(doing_ + QString(": %1 de %2 actos").arg(QString::number(done), QString::number(all)));
    return !LongWork::cancelled(*this, *cmdCancelar);
}

// What every card calls: the error report, lists, documents, the family card's first load.
#pragma once

#include "platform/jet/recordset.h"
#include "store/session.h"

#include <QString>
#include <QVariant>

#include <exception>
#include <utility>

class ComboBox;

// The program's one error exit: an information box with the number and the description. Number 0 is no error and shows
// nothing. Rolls back only while a statement runs; a transaction pending on an idle connection stays pending.
void MostraErro(const jet::Error& erro);

// An error that isn't the store's has number 7 where the memory was short, and 51 otherwise.
void MostraErro(const std::exception& erro);

// Runs a step of a routine: an error is shown, and the routine goes on after the step.
template <class Step>
void evenIfItFails(Step&& step)
{
    try {
        std::forward<Step>(step)();
    } catch (const std::exception& erro) {
        MostraErro(erro);
    }
}

// Runs the routine of a form that an event calls; not to be used within one. An error ends the routine and is shown by
// MostraErro; a transaction that the routine leaves open is abandoned.
template <class Routine>
void guarded(Routine&& routine)
{
    jet::RoutineScope scope(cnBDP);
    evenIfItFails(std::forward<Routine>(routine));
}

// Chooses the first entry with that item number and returns its index; -1, with the choice unchanged, if there is none
// or the value is null or blank. Throws Error 13 for a text that is no number.
int ProcuraItemData(ComboBox& lista, const QVariant& valor);

// Chooses the first entry whose trimmed text is the value without its "*"s, trimmed; otherwise as ProcuraItemData.
int ProcuraTexto(ComboBox& lista, const QVariant& valor);

// Fills a coded list from all rows of a recordset: a first entry of two blanks, then one entry a row. Where the columns
// differ, the second gives the item number. A recordset without rows leaves the list without any entry.
// Precondition: the recordset is open (Error 3704), and no row has a null there (Error 94).
void PreencheCombo(ComboBox& lista, jet::Recordset& registos, int colunaTexto, int colunaDados);

// Opens a document in the program of its type; a failure is reported in a box. An empty path does nothing. Asks first
// where the document is neither a picture nor a PDF, a text or an office document; refuses programs, scripts,
// shortcuts, servers and URLs, and says so.
void AbreFicheiro(const QString& caminho);

// Brings up the family card behind the splash, which stays for three seconds or until Escape.
void CarregaFichaFam();

// The dates of a person as a tree shows them: "  DN: " or else "  IO: ", then "  DO: " or else "  FO: ".
QString DatasResumo(const jet::Recordset& registos);

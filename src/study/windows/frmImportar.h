// "Importar": files of other programs become a BDP, or go into the one that is open, by a way of study/exchange.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"
#include "platform/time/clock.h"
#include "study/exchange/gedcomIn.h"
#include "study/exchange/ways.h"
#include "study/windows/background.h"

#include "ui_frmImportar.h"

#include <QProgressBar>

#include <memory>
#include <optional>

// A rehearsal tells what an import would do and writes nothing. An import follows a rehearsal of the same files, as
// they were then, that has found no error. Both run on a thread; closing the window ends them. A BDP that was made is
// offered to be opened. The last import into the BDP in work can be taken back. The window needs no BDP in work.
class FrmImportar : public Form, private Ui::FrmImportar
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmImportar";

    FrmImportar();
    ~FrmImportar() override;

    bool isAtWork() const { return work_ != nullptr; }

protected:
    void Form_Load() override;

private:
    // What an import is asked of, with the state of its files.
    struct Asked
    {
        const study::exchange::WayIn* way = nullptr;
        study::exchange::InOrder order = {};
        QString stamp = {};

        bool operator==(const Asked&) const = default;
    };

    void connectAll();
    void lstFormato_Click();
    void cmdOrigem_Click();
    void cmdAlvo_Click();
    void cmdEnsaio_Click();
    void cmdImportar_Click();
    void cmdDesfazer_Click();
    void cmdCancelar_Click();
    void cmdCopiar_Click();

    const study::exchange::WayIn& way() const; // the one chosen
    void showWay();
    QString whyNotReady(); // "", or what the user has to do first, with the focus where
    Asked asked() const;   // by the fields, without the state of the files

    // frmImportar_work.cpp
    void begin(Asked asked); // on a thread; throws jet::Error
    void importIntoOpen();   // throws jet::Error
    void takeBack();         // what stands_; throws jet::Error
    void lookForImport();    // throws jet::Error
    bool goesOn(double done);
    void ended();
    void tellResult(const study::exchange::Exchanged& told);
    void offerToOpen();

    void tell(const QString& state, const QString& report);
    void setAtWork(bool atWork);
    void offerCommands();

    QString newBdp_;                                        // as typed, while a way into the open one is chosen
    std::optional<Asked> rehearsed_;                        // without errors
    Asked asked_;                                           // what is under way
    std::optional<study::exchange::GedcomImported> stands_; // the last import into the BDP that is open
    std::unique_ptr<study::Background> work_;
    std::shared_ptr<std::optional<study::exchange::Exchanged>> told_; // of it, written when it is done
    Clock::Time shownAt_; // when it was shown last how far it is, on the one thread
};

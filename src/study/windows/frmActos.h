// The acts that were transcribed into the BDP, by book and number.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/form.h"
#include "study/windows/actList.h"

#include "ui_frmActos.h"

#include <optional>

// Lists the acts, with a line of its own for the numbers that are missing between them; opens one, undoes one, and
// writes those that are seen as Kleio. The list is read anew whenever the window comes to the front, and by
// showStored(); what is chosen stays chosen. Nothing is undone while a card edits or searches.
class FrmActos : public Form, private Ui::FrmActos
{
    Q_OBJECT

public:
    static constexpr auto Name = "frmActos";

    FrmActos();

    // Reads the list anew. Throws jet::Error.
    void showStored();
    // The same where the window is loaded. Throws jet::Error.
    static void showStoredIfOpen();

protected:
    void Form_Load() override;

private:
    void cmbTipo_Click();
    void cmbLivro_Click();
    void txtNome_Change();
    void dtgActos_Click();
    void cmdAbrir_Click();
    void cmdDesfazer_Click();
    void cmdExportar_Click();
    void cmdFechar_Click();

    void keepUpToDate();
    void fillBooks();
    void fillGrid(); // with the lines that the filter leaves
    void offerCommands();
    study::ActFilter filter() const;
    const QHash<qint64, QStringList>& words(); // of the names of each act, read when first sought
    std::optional<study::ActLine> chosen() const;
    QString undone(const study::ActLine& line);
    QList<qint64> listedActs() const;

    QList<study::ActLine> all_, seen_;
    QList<std::optional<QString>> books_; // of the list, in its order
    std::optional<QHash<qint64, QStringList>> words_;
    bool wasInFront_ = false;
};

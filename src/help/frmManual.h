// The manual in a window of the program.
#pragma once

#include "help/manual.h"

#include <QWidget>

#include <memory>

class QTreeWidgetItem;

namespace Ui {
class FrmManual;
}

// Stands beside the main window, or over a box, and is on no list of forms: a command that looks at the form loaded last
// finds the same one while somebody reads.
class FrmManual : public QWidget
{
    Q_OBJECT

public:
    // `over`: what the window belongs to, and is shown above.
    // Precondition: the manual is there.
    FrmManual(const help::Manual& manual, QWidget* over);
    ~FrmManual() override;

    // The page, or the first one for an empty id or one that the manual hasn't got; brings the window to the front.
    void showPage(const QString& id);

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void txtProcura_Change();
    void tvwIndice_Click(const QTreeWidgetItem* item);
    void cmdPDF_Click();

    void connectAll();
    void addKey(const QKeySequence& keys, const std::function<void()>& run);
    void fillContents();
    void fillHits(const QString& sought);
    QTreeWidgetItem* add(const help::Entry& entry, QTreeWidgetItem* above);
    void showEntry(const help::Entry& entry);
    void choose(const help::Entry* entry); // in the list
    void pageChanged();
    void zoomed();

    std::unique_ptr<Ui::FrmManual> ui;
    help::Manual manual_;
};

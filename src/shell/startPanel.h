// What the main window offers while no BDP is open.
#pragma once

#include <QWidget>

#include <memory>

class QMdiArea;

namespace Ui {
class StartPanel;
}

// Stands in the middle of the document area as long as no BDP is open and no window is shown there; it is no form, and
// on no list of them. When it appears and nothing else has the focus, its first button gets it.
class StartPanel : public QWidget
{
    Q_OBJECT

public:
    explicit StartPanel(QMdiArea* area);
    ~StartPanel() override;

signals:
    void wantsOpen();
    void wantsNew();
    void wantsDemo();
    void wantsManual();
    void wantsTutorial();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void lookAgain(); // behind what goes on now, which may open and close several
    void look();
    void place();
    bool isWanted() const;

    std::unique_ptr<Ui::StartPanel> ui;
    QMdiArea* area_;
    bool looksAgain_ = false;
};

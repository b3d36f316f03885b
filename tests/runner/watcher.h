// What comes up by itself while a step is done: message boxes, file dialogs, the splash.
#pragma once

#include "stage.h"

#include <QObject>

#include <functional>

class QDialog;
class QFileDialog;
class QMessageBox;

// Watches the whole application. Boxes with only "OK" are recorded and closed at once; questions get the next answer,
// file dialogs the next pick; the splash gets Escape. What the scenario did not foresee is reported to `onFailure`,
// which doesn't return.
class Watcher : public QObject
{
public:
    Watcher(Stage& stage, std::function<void(const QString&)> onFailure);

    // The splash, where it stands and the scenario leaves it alone.
    QWidget* keptSplash() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void attend(QDialog* dialog);
    void attend(QMessageBox* box);
    void attend(QFileDialog* dialog);
    void pick(QFileDialog* dialog, const QString& path);

    Stage& stage_;
    std::function<void(const QString&)> onFailure_;
    QPointer<QWidget> splash_;
};

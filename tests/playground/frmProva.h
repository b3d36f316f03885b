// A form with one control of each kind in each state, for the tests of the scenario runner.
#pragma once

#include "platform/forms/form.h"

class ComboBox;
class QTreeWidget;

class FrmProva : public Form
{
    Q_OBJECT

public:
    FrmProva();

private:
    void addFields(QWidget* page);
    void addLists(QWidget* page);
    void addCommands(QWidget* page);
    void command(QWidget* page, const char* name, std::function<void()> routine);
    void say(const QString& text);

    int clicks_ = 0;
};

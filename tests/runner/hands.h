// What a person does at the program, with mouse and keys. Every routine throws Failure where a person couldn't do it,
// and lets what it brings run to its end.
#pragma once

#include "lookup.h"
#include "stage.h"

namespace Hands {

void menu(Stage& stage, const QString& name);
void runSwitchedOff(Stage& stage, const QString& name); // the handler of an item that is out of reach
void click(Stage& stage, const QString& name);
void setChecked(Stage& stage, const QString& name, bool on);
void focus(Stage& stage, const QString& name);
void type(Stage& stage, const QString& name, const QString& text);
void paste(Stage& stage, const QString& name, const QString& text);
void enter(Stage& stage, const QString& name, const QString& text);
void key(Stage& stage, const QString& keys);
void chooseText(Stage& stage, const QString& name, const QString& text);
void chooseIndex(Stage& stage, const QString& name, int index);
void row(Stage& stage, const QString& name, int row);
void doubleClick(Stage& stage, const QString& name, int row);
void close(Stage& stage, const QString& formName);

} // namespace Hands

// The list of countries as the keyboard finds its way in it.
#pragma once

#include "platform/time/clock.h"

#include <QListView>

// The entries of a list of countries, "PT - Portugal". Letters typed on it, or on the list while it is closed, find the
// next country whose name behind the " - " begins with them, blind to case and accents; where no name does, its code.
class PaisesPorNome : public QListView
{
    Q_OBJECT

public:
    using QListView::QListView;
    void keyboardSearch(const QString& letras) override;

private:
    QString escrito_;    // in one go
    Clock::Time ultima_; // letra
};

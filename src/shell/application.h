// The application object of the program.
#pragma once

#include <QApplication>

// An error of the store that no routine has handled ends the program, with nothing shown: what is pending is rolled
// back, and the exit status isn't 0. Any other error is shown in the box of MostraErro, and the program goes on.
class Application : public QApplication
{
public:
    // Options of the toolkit aren't read: the whole command line is the program's own.
    explicit Application(char** argv) : QApplication(one_, argv) {}

    bool notify(QObject* receiver, QEvent* event) override;

private:
    inline static int one_ = 1;
};

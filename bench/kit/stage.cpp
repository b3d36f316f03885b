#include "kit/stage.h"

#include "kit/settle.h"
#include "parish/parish.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "platform/forms/longwork.h"
#include "shell/beginSession.h"
#include "shell/startup.h"
#include "store/session.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMdiArea>
#include <QMessageBox>
#include <QStatusBar>
#include <QTimer>

#include <cstdlib>

namespace bench {

namespace {

// Stands in for the user before a box.
class Answers : public QObject
{
public:
    int yes = 0;
    bool all = false;

protected:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() != QEvent::Show) return false;
        auto* box = qobject_cast<QMessageBox*>(object);
        if (!box) return false;
        if (!all && yes-- == 0) qFatal("a box that nobody expects: %s", qPrintable(box->text()));
        QTimer::singleShot(0, box, [box] { box->buttons().constFirst()->click(); });
        return false;
    }
};

Answers& answers()
{
    static Answers* const those = [] {
        auto* made = new Answers;
        qApp->installEventFilter(made);
        return made;
    }();
    return *those;
}

} // namespace

void answerYes()
{
    ++answers().yes;
}

void answerBoxes(bool all)
{
    answers().all = all;
}

Stage::Stage(int people, Files files) : area_(new QMdiArea)
{
    answers();
    const bool own = files == Files::Own;
    if (own) {
        ours_.emplace(people);
        bares_.emplace(people);
    }
    StrLigacao = connectionString(own ? ours_->path() : parishOf(people));
    cnBDP.onLongStatement(statementGoesOn, LongWork::ended);
    cnBDP.open(StrLigacao, jet::Connection::Sharing::Alone);
    bare_ = std::make_unique<Bare>(own ? bares_->path() : parishOf(people));
    CodParoquia = parishCode;
    CodPais = "PT";

    Focus::install();
    window_.setObjectName("frmORV");
    window_.setCentralWidget(area_);
    window_.statusBar();
    window_.resize(1280, 800);
    Forms::setMainWindow(&window_, area_);
    registerForms();
    window_.show();
    settle();
}

Stage::~Stage()
{
    Forms::clear();
    cnBDP.close();
    CodParoquia.clear();
    beginSession();
}

sqlite3* StagedSides::ourHandle() const
{
    return cnBDP.handle();
}

} // namespace bench

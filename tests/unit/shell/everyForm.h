// Each form that is made known, loaded alone and shown.
#pragma once

#include "shell/startup.h"

#include "common/dono.h"
#include "platform/forms/msgbox.h"
#include "store/parish.h"
#include "store/sessionChange.h"

// The main window of a screen of 1024 x 700: what its frame, its menus and its status bar leave of it.
inline constexpr QSize laptopArea(1016, 624);

// The windows that are opened for a person or a family.
inline const QStringList ofSomebody{"frmApadrinha", "frmAssinatura", "frmFuneral", "frmIntervenientes", "frmLegados",
                                    "frmPass",      "frmProf",       "frmResid",   "frmRituais"};

class EveryForm : public Parish
{
protected:
    EveryForm()
    {
        registerForms();
        cnBDP.execute("insert into individuo (nind, nome) values (7, 'Ana')");
        window.resize(laptopArea);
        QObject::connect(&closer_, &QTimer::timeout, [] { // a form loaded for nobody may complain
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) box->accept();
        });
        closer_.start(0);
    }

    // Loads each form alone and shows it.
    static void forEach(const std::function<void(Form&)>& look)
    {
        Dono ana;
        ana.numero = "7";
        ana.nome = "Ana";
        QStringList names = Forms::names();
        names.sort();
        ASSERT_GT(names.size(), 25);
        for (const QString& name : std::as_const(names)) {
            if (ofSomebody.contains(name))
                JanelaDoDono::abre(name, ana);
            else
                Forms::show(name);
            Form* form = Forms::find(name);
            ASSERT_TRUE(form) << qPrintable(name);
            QCoreApplication::processEvents();
            look(*form);
            Forms::unloadAll();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }

private:
    QTimer closer_;
};

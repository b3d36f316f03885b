// Opening a BDP, and bringing up a card: for the first time, and again by the menu.
#include "measures/all.h"

#include "families/frmFam.h"
#include "individuals/frmInd.h"
#include "kit/bareWindow.h"
#include "kit/settle.h"
#include "kit/stage.h"
#include "measures/reads.h"
#include "platform/forms/forms.h"
#include "store/modBD.h"
#include "store/session.h"

#include <sqlite3.h>

namespace bench {

namespace {

// The bare side reads the schema, as the program does to bring it up to date.
class Open : public Sides
{
public:
    explicit Open(int people) : path_(parishOf(people)) {}

    void ours(int) override
    {
        if (!AbreBDP(path_)) qFatal("it doesn't open");
        cnBDP.close();
    }

    void bare(int) override
    {
        Bare engine(path_);
        engine.run("select name, sql from sqlite_master");
    }

    void finish(int) override { cnBDP.setObserver({}); }

private:
    QString path_;
};

void fill(QWidget& form, int lists)
{
    const QStringList places(13, "Outeiro de Fonte 12 -L- 030101012"), codes(10, "Legítima");
    int list = 0;
    for (auto* box : form.findChildren<ComboBox*>())
        box->addItems(list++ < lists ? places : codes);
}

// The bare side shows the first record and counts them, and reads the others when somebody goes there.
class FirstPerson : public StagedSides
{
public:
    explicit FirstPerson(int people) : StagedSides(people, Files::Shared) {}

    void ours(int) override { FrmInd::abrePeloMenu(); }

    void bare(int) override
    {
        window_.show(stage().area(), [](QWidget* form) {
            Ui::FrmInd ui;
            ui.setupUi(form);
            fill(*form, 2);
        });
        bareSide().run("select count(*) from individuo");
        readListsOfPerson(bareSide());
        readPerson(bareSide(), 1);
    }

    bool showsItself(int) const override { return true; }

    void finish(int) override
    {
        window_.close();
        Forms::find(FrmInd::Name)->unload();
    }

private:
    BareWindow window_;
};

class FirstFamily : public StagedSides
{
public:
    explicit FirstFamily(int people) : StagedSides(people, Files::Shared) {}

    void ours(int) override { frmFam().abrePeloMenu(); }

    void bare(int) override
    {
        window_.show(stage().area(), [](QWidget* form) {
            Ui::FrmFam ui;
            ui.setupUi(form);
            fill(*form, 1);
        });
        bareSide().run("select count(*) from familia");
        readListsOfFamily(bareSide());
        readFamily(bareSide(), 1);
    }

    bool showsItself(int) const override { return true; }

    void finish(int) override
    {
        window_.close();
        Forms::find(FrmFam::Name)->unload();
    }

private:
    BareWindow window_;
};

// The card is there already: the bare side asks whether anybody has written to the file since.
class Menu : public StagedSides
{
public:
    Menu(int people, void (*open)()) : StagedSides(people, Files::Shared), open_(open) { open_(); }

    void ours(int) override { open_(); }
    void bare(int) override { bareSide().run("pragma data_version"); }

private:
    void (*open_)();
};

} // namespace

std::vector<Measure> loading()
{
    return {{.name = "open",
             .event = "opening and closing of a BDP",
             .make = [](int people) { return std::make_unique<Open>(people); }},
            {"first-person",
             "the card of a person comes up for the first time",
             {.ratio = 2, .ms = {{0, 25}}},
             [](int people) { return std::make_unique<FirstPerson>(people); },
             15},
            {"first-family",
             "the card of a family comes up for the first time",
             {.ratio = 2, .ms = {{0, 25}}},
             [](int people) { return std::make_unique<FirstFamily>(people); },
             15},
            {.name = "menu-person",
             .event = "the menu brings the card of a person up again",
             .goal = {.ms = {{0, 0.3}}},
             .make = [](int people) { return std::make_unique<Menu>(people, FrmInd::abrePeloMenu); }},
            {.name = "menu-family",
             .event = "the menu brings the card of a family up again",
             .goal = {.ms = {{0, 0.3}}},
             .make = [](int people) { return std::make_unique<Menu>(people, [] { frmFam().abrePeloMenu(); }); }}};
}

} // namespace bench

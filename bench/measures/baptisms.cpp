// A day of baptisms as the windows take them: the child on the card of people, then its act with a priest and two
// godparents, who are picked on the same card.
#include "measures/all.h"

#include "acts/frmIntervenientes.h"
#include "control.h"
#include "individuals/frmInd.h"
#include "kit/bareWindow.h"
#include "kit/stage.h"
#include "measures/reads.h"
#include "platform/forms/forms.h"

#include <QMessageBox>

namespace bench {

namespace {

constexpr int baptismsOfADay = 200;

class Baptism : public StagedSides
{
public:
    explicit Baptism(int people) : StagedSides(people, Files::Own), child_(lastPerson(bareSide())), shown_(child_)
    {
        frmInd().display();
        pressCard("cmdIns");
        addSteps();
    }

    int steps() const override { return static_cast<int>(steps_.size()); }
    void prepare(int step) override { call(at(step).prepare); }
    void ours(int step) override { at(step).ours(); }
    void bare(int step) override { call(at(step).bare); }
    void finish(int) override { window_.close(); }
    bool showsItself(int step) const override { return at(step).window; }

private:
    using Work = std::function<void()>;

    struct Step
    {
        Work ours;
        Work bare = {};
        Work prepare = {};
        bool window = false; // the bare side shows one of its own
    };

    static void call(const Work& work)
    {
        if (work) work();
    }

    const Step& at(int step) const { return steps_[static_cast<std::size_t>(step)]; }

    static void pressCard(const char* button) { control<CommandButton>(frmInd(), button).click(); }
    static void pressAct(const char* button)
    {
        control<CommandButton>(*Forms::find(FrmIntervenientes::Name), button).click();
    }

    void addSteps();
    void addPick(const char* asking, int before); // of the person who stands so many rows before the last one
    void addPriest();
    void addGodparent();
    static void typeChild();
    void insertChild();
    void openAct();
    void askBare();
    void insertGodparent();

    double child_;
    double shown_; // on the card
    std::vector<Step> steps_;
    BareWindow window_;
};

void Baptism::addSteps()
{
    steps_.push_back({[] { pressCard("cmdIns"); }, [this] { insertChild(); }, typeChild});
    steps_.push_back({[] { pressCard("cmdAlt"); }, [this] { readPerson(bareSide(), child_); }});
    steps_.push_back({[] { pressCard("cmdInterv"); }, [this] { openAct(); }, {}, true});
    addPriest();
    addGodparent();
    addGodparent();
    steps_.push_back({[] { pressAct("cmdSair"); }, [this] { readPerson(bareSide(), child_); }});
    steps_.push_back({[] { pressCard("cmdIns"); }});
}

void Baptism::addPick(const char* asking, int before)
{
    steps_.push_back({[asking] { pressAct(asking); }});
    steps_.push_back({[] { pressCard("cmdUlt"); }, [this] { readPerson(bareSide(), shown_ = child_); }});
    for (int i = 0; i < before; ++i)
        steps_.push_back({[] { pressCard("cmdAnt"); }, [this] { readPerson(bareSide(), --shown_); }});
    steps_.push_back({[] { pressCard("cmdAtribuir"); },
                      [this] {
                          bareSide().run("select datanasc, dataobito, inicioobs, fimobs from individuo where nind = ?",
                                         {shown_});
                      }});
}

void Baptism::addPriest()
{
    steps_.push_back({[] { pressAct("cmdE"); }});
    addPick("cmdIndP1", 3);
    steps_.push_back({[] { pressAct("cmdE"); }, [this] { askBare(); }, [] { answerYes(); }});
}

void Baptism::addGodparent()
{
    steps_.push_back({[] { pressAct("cmdIns"); }});
    addPick("cmdIndAss", 2);
    steps_.push_back(
        {[] { pressAct("cmdIns"); }, [this] { insertGodparent(); },
         [] { control<OptionButton>(*Forms::find(FrmIntervenientes::Name), "optassistente_0").setValue(true); }});
}

void Baptism::typeChild()
{
    control<TextBox>(frmInd(), "txtNome").setText("Maria da Conceição Pires");
    control<OptionButton>(frmInd(), "optSexo_1").setValue(true);
    control<MaskedEdit>(frmInd(), "mskDtNasc").showPlain("12/03/1890");
    control<QCheckBox>(frmInd(), "chkDtNasc").setChecked(true);
    control<ComboBox>(frmInd(), "cmbFiliacao").setListIndex(1);
}

void Baptism::insertChild()
{
    bareSide().run("insert into individuo (nind, nome, tipo, sexo, datanasc, DnascFixa, filiacao, dobitofixa) values "
                   "(?, 'Maria da Conceição Pires', 'T', 'f', '1890-03-12', 1, 1, 0)",
                   {++child_});
}

void Baptism::openAct()
{
    window_.show(stage().area(), [](QWidget* form) {
        Ui::FrmIntervenientes ui;
        ui.setupUi(form);
    });
    bareSide().run(
        "select nind, tipoassistente, estadocivil, falecidopai, falecidomae, parentbapt, obs from assistente "
        "where entidade = ? and tipoacto = 'b'",
        {child_});
}

// The question, and the priest, whose row is that of a family: it mostly has none.
void Baptism::askBare()
{
    answerYes();
    QMessageBox box(QMessageBox::Question, "ORV", "Deseja realmente confirmar as alterações?",
                    QMessageBox::Yes | QMessageBox::No, Forms::mainWindow());
    box.exec();
    bareSide().run("update familia set primpadrecasam = ?, segpadrecasam = null, funcprimpcasam = null, funcsegpcasam "
                   "= null where nfamilia = ?",
                   {shown_, child_});
}

void Baptism::insertGodparent()
{
    Bare& engine = bareSide();
    engine.run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente, falecidopai, falecidomae) "
               "values ('b', ?, '1890-03-12', ?, 'p', 0, 0)",
               {child_, shown_});
    engine.run("select nind, tipoassistente, estadocivil, falecidopai, falecidomae, parentbapt, obs from assistente "
               "where entidade = ? and tipoacto = 'b'",
               {child_});
}

} // namespace

std::vector<Measure> baptisms()
{
    return {{"day",
             "a day of 200 baptisms with priest and godparents, each",
             {.ratio = 1.5, .drift = 1.2, .most = 1000},
             [](int people) { return std::make_unique<Baptism>(people); },
             baptismsOfADay}};
}

} // namespace bench

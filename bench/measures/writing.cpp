// Insert and alteration on both cards, from the click on the confirming button to the next card on the screen.
#include "measures/all.h"

#include "control.h"
#include "families/frmFam.h"
#include "individuals/frmInd.h"
#include "kit/stage.h"
#include "measures/reads.h"

namespace bench {

namespace {

void click(const Form& form, const char* button)
{
    control<CommandButton>(form, button).click();
}

class InsertPerson : public StagedSides
{
public:
    explicit InsertPerson(int people) : StagedSides(people, Files::Own), number_(lastPerson(bareSide()))
    {
        frmInd().display();
        click(frmInd(), "cmdIns");
    }

    void prepare(int) override
    {
        control<TextBox>(frmInd(), "txtNome").setText("Maria da Conceição Pires");
        control<OptionButton>(frmInd(), "optSexo_1").setValue(true);
        control<MaskedEdit>(frmInd(), "mskDtNasc").showPlain("12/03/1890");
        control<QCheckBox>(frmInd(), "chkDtNasc").setChecked(true);
        control<ComboBox>(frmInd(), "cmbFiliacao").setListIndex(1);
        control<MemoBox>(frmInd(), "txtObs").setText("Livro 12, folha 40");
    }

    void ours(int) override { click(frmInd(), "cmdIns"); }

    void bare(int) override
    {
        bareSide().run("insert into individuo (nind, nome, tipo, sexo, datanasc, DnascFixa, filiacao, dobitofixa, obs) "
                       "values (?, 'Maria da Conceição Pires', 'T', 'f', '1890-03-12', 1, 1, 0, 'Livro 12, folha 40')",
                       {++number_});
    }

private:
    double number_;
};

class AlterPerson : public StagedSides
{
public:
    explicit AlterPerson(int people) : StagedSides(people, Files::Own), number_(people / 2)
    {
        frmInd().display();
        frmInd().procuraRegisto("nind = " + QString::number(people / 2));
    }

    void prepare(int) override
    {
        click(frmInd(), "cmdAlt");
        text_ = "Livro " + QByteArray::number(++turn_);
        control<MemoBox>(frmInd(), "txtObs").setText(QString::fromLatin1(text_));
    }

    void ours(int) override { click(frmInd(), "cmdAlt"); }

    void bare(int) override { bareSide().run("update individuo set obs = ? where nind = ?", {text_, double(number_)}); }

private:
    int number_;
    int turn_ = 0;
    QByteArray text_;
};

class InsertFamily : public StagedSides
{
public:
    explicit InsertFamily(int people) : StagedSides(people, Files::Own), number_(lastFamily(bareSide()))
    {
        husband_ = bareSide().number("select nind from individuo where sexo = 'm' order by nind desc limit 1");
        wife_ = bareSide().number("select nind from individuo where sexo = 'f' order by nind desc limit 1");
        frmFam().display();
    }

    void prepare(int) override
    {
        click(frmFam(), "cmdIns");
        control<TextBox>(frmFam(), "txtPnind").setText(QString::number(husband_, 'f', 0));
        control<TextBox>(frmFam(), "txtSnind").setText(QString::number(wife_, 'f', 0));
        control<MaskedEdit>(frmFam(), "mskData").showPlain("12/03/1900");
        control<TextBox>(frmFam(), "txtIdade1").setText("30");
        control<TextBox>(frmFam(), "txtIdade2").setText("25");
    }

    void ours(int) override { click(frmFam(), "cmdIns"); }

    void bare(int) override
    {
        Bare& engine = bareSide();
        ++number_;
        engine.run("begin");
        engine.run("insert into familia (nfamilia, sfamilia, tipocasal, datacasam, dcasamfixa) values (?, '1', 7, "
                   "'1900-03-12', 1)",
                   {number_});
        engine.run("insert into familias (nfamilia, nind, idade) values (?, ?, 30)", {number_, husband_});
        engine.run("insert into familias (nfamilia, nind, idade) values (?, ?, 25)", {number_, wife_});
        engine.run("commit");
        readFamily(engine, number_);
    }

private:
    double number_, husband_, wife_;
};

class AlterFamily : public StagedSides
{
public:
    explicit AlterFamily(int people) : StagedSides(people, Files::Own)
    {
        number_ = static_cast<int>(lastFamily(bareSide())) / 2;
        frmFam().display();
        frmFam().procuraRegisto("nfamilia = " + QString::number(number_));
    }

    void prepare(int) override
    {
        click(frmFam(), "cmdAlt");
        text_ = "Livro " + QByteArray::number(++turn_);
        control<MemoBox>(frmFam(), "txtObs").setText(QString::fromLatin1(text_));
    }

    void ours(int) override { click(frmFam(), "cmdAlt"); }

    void bare(int) override
    {
        bareSide().run("update familia set obs = ? where nfamilia = ?", {text_, double(number_)});
    }

private:
    int number_;
    int turn_ = 0;
    QByteArray text_;
};

} // namespace

std::vector<Measure> writing()
{
    return {{"insert-person",
             "insert and confirm of a person",
             {.ratio = 1.5, .ms = {{0, 3}}},
             [](int people) { return std::make_unique<InsertPerson>(people); }},
            {"alter-person",
             "alteration and confirm of a person",
             {.ratio = 1.5, .ms = {{0, 5}}},
             [](int people) { return std::make_unique<AlterPerson>(people); }},
            {"insert-family",
             "insert and confirm of a family with two spouses",
             {.ratio = 1.5, .ms = {{0, 5}}},
             [](int people) { return std::make_unique<InsertFamily>(people); }},
            {"alter-family", "alteration and confirm of a family", {.ratio = 1.5, .ms = {{0, 5}}}, [](int people) {
                 return std::make_unique<AlterFamily>(people);
             }}};
}

} // namespace bench

// The window of indicators over a parish of seven couples.
#pragma once

#include "control.h"
#include "store/parish.h"
#include "study/windows/frmDefinicoes.h"
#include "study/windows/frmIndicadores.h"

#include <QTest>

inline constexpr auto ageAtMarriage = "idade-ao-casamento", ageGap = "diferenca-de-idade";

class TheWindowOfIndicators : public Parish
{
protected:
    // Six couples: he was born in 1700, she in 1702, and they married in 1720. Of the seventh nobody knows when.
    TheWindowOfIndicators()
    {
        Forms::add(FrmIndicadores::Name, [] { return new FrmIndicadores; });
        Forms::add(FrmDefinicoes::Name, [] { return new FrmDefinicoes; });
        cnBDP.beginTrans();
        for (int family = 1; family <= 7; ++family) {
            person(2 * family - 1, "Rui", "m", "1700-02-14");
            person(2 * family, "Ana", "f", "1702-02-14");
            couple(family, family == 7 ? QVariant() : QVariant("1720-02-14"));
        }
        cnBDP.commitTrans();
    }

    static void execute(const char* statement, const QVariantList& values)
    {
        cnBDP.execute(jet::NativeSql(QString::fromUtf8(statement), values));
    }
    static void person(int number, const char* name, const char* sex, const char* birth)
    {
        execute("insert into individuo (nind, nome, sexo, tipo, datanasc, DnascFixa) values (?, ?, ?, 'T', ?, 1)",
                {number, QString(name), QString(sex), QString(birth)});
    }
    static void couple(int family, const QVariant& marriage)
    {
        execute("insert into familia (nfamilia, sfamilia, tipocasal, datacasam, dcasamfixa) values (?, '1', 7, ?, 1)",
                {family, marriage});
        for (const int member : {2 * family - 1, 2 * family})
            execute("insert into familias (nfamilia, nind, estadocivil, numcasam) values (?, ?, 1, 1)",
                    {family, member});
    }

    static FrmIndicadores& form() { return theForm<FrmIndicadores>(); }
    static CommandButton& button(const char* name) { return control<CommandButton>(form(), name); }
    static Grid& grid() { return control<Grid>(form(), "dtgQuadro"); }
    static Grid& leftOut() { return control<Grid>(form(), "dtgNaoContados"); }
    static Grid& behind() { return control<Grid>(form(), "dtgQuem"); }
    static QString label(const char* name) { return control<QLabel>(form(), name).text(); }
    static QString memo(const char* name) { return control<MemoBox>(form(), name).text(); }
    static bool finishes()
    {
        return QTest::qWaitFor([] { return !form().isAtWork(); }, 60000);
    }
    static void begin(const QString& id)
    {
        form().display();
        auto& tree = control<QTreeWidget>(form(), "tvwTemas");
        for (QTreeWidgetItemIterator item(&tree); *item; ++item)
            if ((*item)->data(0, Qt::UserRole).toString() == id) return tree.setCurrentItem(*item);
        FAIL() << qPrintable(id);
    }
    static void choose(const QString& id)
    {
        begin(id);
        ASSERT_TRUE(finishes());
    }
    static void turnTo(const char* page)
    {
        control<QTabWidget>(form(), "tabPaginas").setCurrentWidget(&control<QWidget>(form(), page));
    }
    static void clickCell(Grid& in, int row, int column)
    {
        const QModelIndex index = in.model()->index(row - 1, column);
        in.scrollTo(index);
        QTest::mouseClick(in.viewport(), Qt::LeftButton, {}, in.visualRect(index).center());
        ASSERT_TRUE(finishes());
    }
    static int rowOf(const Grid& in, const QString& name)
    {
        for (int row = 1; row < in.rows(); ++row)
            if (in.textMatrix(row, 0) == name) return row;
        return 0;
    }
};

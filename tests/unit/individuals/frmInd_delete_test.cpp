// In which order what hangs on a person is deleted.
#include "individuals/individual_card.h"
#include "store/diary.h"

TEST_F(IndividualCard, DeletesWhatHangsOnAPersonInItsOrderAndTheAppearancesAsAssistantTwice)
{
    cnBDP.execute("insert into familia (nfamilia) values (1)");
    cnBDP.execute("insert into familias (nfamilia, nind) values (1, 7)");
    const Diary diary;
    const Answer yes("&Sim");
    click("cmdElim");
    EXPECT_EQ(yes.given, 1);
    // The last one is the cursor's, which finds the row gone.
    EXPECT_EQ(diary.entries.join(" ").toStdString(),
              "residencia profissoes legadosprofanos rituaismorte assinatura assistente assistente assistente "
              "passaporte famorig familias familia individuo individuo");
}

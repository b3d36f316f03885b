// The files of episodes, and what each of their columns holds, in two languages.
#include "study/exchange/episodes_p.h"

namespace study::exchange {

namespace {

using enum Kind;
using Columns = std::vector<TableColumn>;

TableColumn id(const char* portuguese, const char* english)
{
    return TableColumn("id", Whole, portuguese, english).leads("pessoas", "id");
}

TableColumn personBy(const char* name, const char* portuguese, const char* english)
{
    return TableColumn(name, Whole, portuguese, english).leads("pessoas", "id");
}

TableColumn familyBy(const char* name, const char* portuguese, const char* english)
{
    return TableColumn(name, Whole, portuguese, english).leads("familias", "family");
}

TableColumn sex()
{
    return TableColumn("sex", Text, "Sexo: m, f, ou d (indeterminado).", "Sex: m, f, or d (undetermined).")
        .only(word::genders);
}

// Nothing is no word.
QStringList told(QStringList words)
{
    words.removeAll(QString());
    return words;
}

TableColumn approx()
{
    return {"approx", Flag, "1 se uma das datas de que os tempos dependem não é exacta.",
            "1 where a date that the times hang on isn't exact."};
}

TableColumn days()
{
    return {"days", Number, "Dias em risco; os anos do estudo são a sua soma a dividir por 365,25.",
            "Days at risk; the years of the study are their sum over 365.25."};
}

TableColumn cohort(const char* name, const char* portuguese, const char* english)
{
    return {name, Whole, portuguese, english};
}

// Each date has one beside it.
TableColumn decimal(const char* name, const char* portuguese = "O mesmo em anos decimais.",
                    const char* english = "The same in decimal years.")
{
    return {name, Number, portuguese, english};
}

// The number of the spell with its days.
Columns spell()
{
    return {{"spell", Whole, "Número do período da mesma vida, desde 1.", "Number of the spell in this life, from 1."},
            {"start_date", Day, "Primeiro dia do período.", "First day of the spell."},
            {"end_date", Day, "Último dia do período: o do acontecimento, se o há.",
             "Last day of the spell: that of the event, if there is one."},
            decimal("start", "O primeiro dia em anos decimais.", "The first day in decimal years."),
            decimal("end", "O último dia em anos decimais.", "The last day in decimal years.")};
}

Columns risk(const char* portuguese, const char* english, const char* eventPortuguese, const char* eventEnglish)
{
    return {{"enter", Number, portuguese, english},
            {"exit", Number, "O mesmo no fim do período; sempre maior.", "The same at the end; always larger."},
            {"event", Flag, eventPortuguese, eventEnglish},
            days()};
}

Columns parentsDead()
{
    return {{"mother_dead", Flag, "1 se no início do período a mãe já tinha morrido; nada se não se sabe quem é.",
             "1 where the mother had died when the spell began; empty where nobody knows who she is."},
            {"father_dead", Flag, "O mesmo do pai.", "The same of the father."}};
}

Columns birthDates()
{
    return {{"birth_date", Day, "Nascimento, ou baptismo.", "Birth, or baptism."}, decimal("birth")};
}

TableColumn exitBy(const QStringList& words, const char* portuguese, const char* english)
{
    return TableColumn("exit_by", Text, portuguese, english).only(words);
}

Columns joined(std::initializer_list<Columns> parts)
{
    Columns all;
    for (const Columns& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

TableInfo table(const char* name, const char* portuguese, const char* english, const QStringList& key, Columns columns)
{
    return {.name = name,
            .portuguese = portuguese,
            .english = english,
            .key = key,
            .columns = std::move(columns),
            .isDerived = true};
}

// Fixed variables

Columns dated(const char* date, const char* year, const char* precision, const char* portuguese, const char* english)
{
    return {{date, Day, portuguese, english},
            {year, Number, "O mesmo em anos decimais (dias desde 0000-01-01 a dividir por 365,2425).",
             "The same in decimal years (days since 0000-01-01 over 365.2425)."},
            TableColumn(precision, Text, "exact: ao dia; about: cerca do dia; year: só o ano, posto a 1 de Julho.",
                        "exact: to the day; about: about that day; year: the year alone, put on 1 July.")
                .only(told(word::precisions))};
}

Columns placed(const char* code, const char* name, const char* portuguese, const char* english)
{
    return {{code, Text, portuguese, english}, {name, Text, "O nome desse local.", "The name of that place."}};
}

Columns marked(const char* date, const char* year, const char* by, const char* portuguese, const char* english)
{
    return {{date, Day, portuguese, english},
            decimal(year),
            TableColumn(by, Text, "O que o prova.", "What proves it.").only(told(word::proofs))};
}

TableInfo people()
{
    return table(
        "pessoas", "As pessoas: o que não muda com o tempo.", "The people: what doesn't change with time.", {"id"},
        joined({{{"id", Whole, "Número da pessoa na BDP.", "Number of the person in the BDP."}, sex()},
                dated("birth_date", "birth", "birth_precision", "Nascimento, ou baptismo.", "Birth, or baptism."),
                placed("birth_place", "birth_place_name", "Local do nascimento: letra do nível e código.",
                       "Place of the birth: letter of its level, and code."),
                dated("death_date", "death", "death_precision", "Óbito, ou enterro.", "Death, or burial."),
                placed("death_place", "death_place_name", "Local do óbito: letra do nível e código.",
                       "Place of the death: letter of its level, and code."),
                {familyBy("family", "Família em que nasceu.", "Family of birth."),
                 personBy("mother_id", "A mãe.", "The mother."), personBy("father_id", "O pai.", "The father."),
                 TableColumn("legitimacy", Text, "Legitimidade, pelas definições do estudo.",
                             "Legitimacy, by the settings of the study.")
                     .only(word::legitimacies)},
                marked("obs_start_date", "obs_start", "obs_start_by", "Desde quando está em observação na freguesia.",
                       "From when on the person is observed in the parish."),
                marked("obs_end_date", "obs_end", "obs_end_by", "Até quando está em observação na freguesia.",
                       "Until when the person is observed in the parish."),
                {{"alive_until_date", Day, "Última prova de vida, onde quer que seja.",
                  "Last proof of life, wherever it is from."},
                 decimal("alive_until"),
                 {"occupation", Text, "A primeira profissão que se conhece.", "The first occupation that is told."},
                 {"occupation_hisco", Text, "O código HISCO dessa profissão, se as notas dela o têm.",
                  "The HISCO code of that occupation, where its notes have one."},
                 {"signature_level", Whole, "O nível mais alto das assinaturas.",
                  "The highest level of the signatures."}}}));
}

TableInfo families()
{
    return table(
        "familias", "As famílias: o que não muda com o tempo.", "The families: what doesn't change with time.",
        {"family"},
        joined(
            {{{"family", Whole, "Número da família na BDP.", "Number of the family in the BDP."},
              personBy("husband_id", "O marido, ou o pai.", "The husband, or the father."),
              personBy("wife_id", "A mulher, ou a mãe.", "The wife, or the mother.")},
             dated("marriage_date", "marriage", "marriage_precision", "Casamento.", "Marriage."),
             placed("marriage_place", "marriage_place_name", "Local do casamento: letra do nível e código.",
                    "Place of the marriage: letter of its level, and code."),
             {cohort("marriage_cohort", "Primeiro ano do período do casamento.",
                     "First year of the period of the marriage."),
              {"husband_age", Number, "Idade dele ao casar, pelas datas.", "His age at the marriage, by dates."},
              {"wife_age", Number, "Idade dela ao casar, pelas datas.", "Her age at the marriage, by dates."},
              {"husband_first", Flag, "1 se é o primeiro casamento dele; nada se não se sabe.",
               "1 where it is his first marriage; empty where that isn't known."},
              {"wife_first", Flag, "1 se é o primeiro casamento dela; nada se não se sabe.",
               "1 where it is her first marriage; empty where that isn't known."},
              {"class", Text, "Classe: MF, MO, EF ou EO, e I, I′ ou II.", "Class: MF, MO, EF or EO, and I, I′ or II."},
              {"type", Whole, "Tipo calculado, de 1 a 7.", "Computed type, from 1 to 7."},
              {"end_date", Day, "Fim da união, se é certo.", "End of the union, where it is certain."},
              decimal("end"),
              TableColumn("end_by", Text, "Como se sabe o fim.", "How the end is known.").only(told(word::ends)),
              {"open_by", Text, "Porque não se sabe o fim; por palavras.",
               "Why the end isn't known; in Portuguese words."},
              {"wife_birth_date", Day, "Nascimento da mulher, se for preciso pela idade que um acto diz.",
               "Birth of the wife, if need be by an age that an act tells."},
              decimal("wife_birth"),
              TableColumn("wife_birth_by", Text, "Como se sabe esse nascimento.", "How that birth is known.")
                  .only(told(word::births)),
              {"children", Whole, "Filhos do casal na BDP.", "Children of the couple in the BDP."},
              {"children_dated", Whole, "Os que têm data de nascimento.", "Those who have a date of birth."}}}));
}

// Episodes

TableInfo fertility()
{
    return table(
        "fecundidade", "Fecundidade legítima: as mulheres casadas, por idade e por filhos já nascidos.",
        "Marital fertility: wives by their age and by the children born so far.", {"family", "spell"},
        {id("A mulher.", "The wife."),
         familyBy("family", "A família.", "The family."),
         {"spell", Whole, "Número do período na família, desde 1.", "Number of the spell in the family, from 1."},
         {"spell_start_date", Day, "Primeiro dia do período.", "First day of the spell."},
         {"spell_end_date", Day, "Último dia do período: o do parto, se o há.",
          "Last day of the spell: that of the confinement, if there is one."},
         decimal("spell_start", "O primeiro dia em anos decimais.", "The first day in decimal years."),
         decimal("spell_end", "O último dia em anos decimais.", "The last day in decimal years."),
         {"age_enter", Number, "Idade exacta da mulher no início.", "Exact age of the wife at the beginning."},
         {"age_exit", Number, "Idade exacta da mulher no fim; sempre maior.",
          "Exact age of the wife at the end; always larger."},
         {"since_enter", Number, "Anos desde o último parto no casamento, ou desde o casamento, no início.",
          "Years since the last confinement in the marriage, or since the marriage, at the beginning."},
         {"since_exit", Number, "O mesmo no fim; sempre maior.", "The same at the end; always larger."},
         {"event", Flag, "1 se o período acaba num parto.", "1 where the spell ends in a confinement."},
         {"births", Whole, "Nascimentos desse parto que contam: os gémeos são dois.",
          "Births of that confinement that count: twins are two."},
         {"posthumous", Flag, "1 se nasceu depois do fim da união: conta, e não acrescenta tempo.",
          "1 for a birth behind the end of the union: it counts, and adds no time."},
         days(),
         {"age_group", Whole, "Idade mais baixa do grupo de cinco anos.", "Lowest age of the group of five years."},
         {"parity", Whole, "Filhos do casal já nascidos no início, com data.",
          "Children of the couple who were born before the beginning, of those with a date."},
         TableColumn("prev_child_fate", Text,
                     "O último filho no início do período: none não há; alive não se sabe que tenha morrido; dead "
                     "morreu; unknown não se saberia.",
                     "The last child when the spell begins: none there is none; alive nothing tells of a death; dead; "
                     "unknown it wouldn't be known.")
             .only({"none", "alive", "dead", "unknown"}),
         {"prev_ivl_days", Whole, "Dias do intervalo que acabou no último parto; o primeiro começa no casamento.",
          "Days of the interval that ended in the last confinement; the first one begins with the marriage."},
         {"marriage_date", Day, "Casamento.", "Marriage."},
         decimal("marriage"),
         {"marriage_age", Number, "Idade exacta da mulher ao casar.", "Exact age of the wife at the marriage."},
         cohort("marriage_cohort", "Primeiro ano do período do casamento.",
                "First year of the period of the marriage."),
         cohort("period", "Primeiro ano do período em que o tempo foi vivido.",
                "First year of the period in which the time was lived."),
         {"first_marriage", Flag, "1 se nada diz que ela já tinha casado.",
          "1 where nothing tells of an earlier marriage of hers."},
         {"class", Text, "Classe da família.", "Class of the family."},
         TableColumn("wife_birth_by", Text, "Como se sabe o nascimento da mulher.", "How the wife's birth is known.")
             .only(told(word::births)),
         approx()});
}

TableInfo childhood()
{
    return table(
        "mortalidade_infancia", "Mortalidade até aos 15 anos, enquanto a família é vista.",
        "Mortality to the age of 15, as long as the family is seen.", {"id", "spell"},
        joined({{id("A criança.", "The child."), familyBy("family", "A família.", "The family."),
                 personBy("mother_id", "A mãe.", "The mother."), personBy("father_id", "O pai.", "The father."), sex()},
                birthDates(),
                {cohort("cohort", "Primeiro ano do período do nascimento.", "First year of the period of the birth."),
                 TableColumn("legitimacy", Text, "Legitimidade, pelas definições do estudo.",
                             "Legitimacy, by the settings of the study.")
                     .only(word::legitimacies),
                 {"mother_age", Number, "Idade exacta da mãe ao nascimento.", "Exact age of the mother at the birth."},
                 {"birth_order", Whole, "Ordem entre os filhos do casal que a BDP tem.",
                  "Order among the children of the couple in the BDP."},
                 {"twin", Flag, "1 para gémeos.", "1 for twins."}},
                spell(),
                risk("Idade exacta no início do período.", "Exact age at the beginning of the spell.",
                     "1 se o período acaba na morte.", "1 where the spell ends in the death."),
                parentsDead(),
                {exitBy({"death", "age", "unseen"},
                        "Como acaba a vida observada: death morre; age faz 15 anos; unseen deixa de ser vista.",
                        "How the life that is observed ends: death; age it is 15; unseen it is seen no longer."),
                 {"approx", Flag, "1 se o nascimento ou o óbito não são exactos.",
                  "1 where the birth or the death isn't exact."}}}));
}

TableInfo adulthood()
{
    return table(
        "mortalidade_adultos", "Mortalidade dos casados, desde o primeiro casamento.",
        "Mortality of the married, from the first marriage on.", {"id", "spell"},
        joined(
            {{id("A pessoa.", "The person."), familyBy("family", "O primeiro casamento.", "The first marriage."),
              personBy("spouse_id", "O cônjuge desse casamento.", "The spouse of that marriage."), sex()},
             birthDates(),
             {{"marriage_date", Day, "Primeiro casamento.", "First marriage."},
              decimal("marriage"),
              cohort("marriage_cohort", "Primeiro ano do período do casamento.",
                     "First year of the period of the marriage.")},
             spell(),
             risk("Idade exacta no início do período: a do casamento no primeiro.",
                  "Exact age at the beginning of the spell: that at the marriage in the first one.",
                  "1 se o período acaba na morte; sem óbito conhecido, a vida acaba na última prova de vida.",
                  "1 where the spell ends in the death; without a known death a life ends with the last proof of it."),
             {TableColumn("status", Text, "married, ou widowed se se sabe que o cônjuge morreu.",
                          "married, or widowed where the spouse is known to be dead.")
                  .only({"married", "widowed"}),
              approx()}}));
}

TableInfo bounds()
{
    return table(
        "mortalidade_adultos_limites",
        "As mesmas vidas de casados por outras três estimativas, uma de cada vez: nunca se somam.",
        "The same lives of the married by three other estimates, one at a time: they are never added.",
        {"id", "estimate"},
        joined(
            {{id("A pessoa.", "The person."),
              TableColumn("estimate", Text,
                          "closed: só as uniões fechadas, até ao fim da união; least: quem não tem óbito morre quando "
                          "primeiro é dado por morto, ou sai; most: quem não tem óbito morre na última prova de vida.",
                          "closed: closed unions alone, to the end of the union; least: an unknown death comes when it "
                          "is first told, or the person leaves; most: it comes with the last proof of life.")
                  .only({"closed", "least", "most"}),
              familyBy("family", "O primeiro casamento.", "The first marriage."), sex()},
             birthDates(),
             {cohort("marriage_cohort", "Primeiro ano do período do casamento.",
                     "First year of the period of the marriage."),
              {"start_date", Day, "Primeiro dia.", "First day."},
              {"end_date", Day, "Último dia.", "Last day."},
              decimal("start", "O primeiro dia em anos decimais.", "The first day in decimal years."),
              decimal("end", "O último dia em anos decimais.", "The last day in decimal years.")},
             risk("Idade exacta ao casar, ou no início da observação.",
                  "Exact age at the marriage, or when the observation begins.", "1 se morre.", "1 for a death.")}));
}

TableInfo singleLife()
{
    return table(
        "nupcialidade", "O primeiro casamento, desde os 12 anos até aos 50, enquanto se é visto na freguesia.",
        "The first marriage, from the age of 12 to 50, as long as somebody is seen in the parish.", {"id", "spell"},
        joined(
            {{id("A pessoa.", "The person."), familyBy("family", "Família em que nasceu.", "Family of birth."), sex()},
             birthDates(),
             {cohort("cohort", "Primeiro ano do período do nascimento.", "First year of the period of the birth.")},
             spell(),
             risk("Idade exacta no início do período.", "Exact age at the beginning of the spell.",
                  "1 se o período acaba no primeiro casamento.", "1 where the spell ends in the first marriage."),
             parentsDead(),
             {familyBy("marriage_family", "A família desse casamento.", "The family of that marriage."),
              exitBy({"marriage", "death", "age", "unseen"},
                     "Como acaba a vida de solteiro: marriage casa; death morre; age faz 50 anos; unseen deixa de "
                     "ser visto. Quem parte solteiro deixa de ser visto cedo, e quem casa não: as taxas são altas.",
                     "How the single life ends: marriage; death; age of 50; unseen. Who leaves single is soon seen "
                     "no longer, and who marries is: the rates are high."),
              approx()}}));
}

TableInfo widowhood()
{
    return table(
        "recasamento", "Da viuvez ao novo casamento.", "From widowhood to the next marriage.", {"family"},
        joined({{id("Quem sobreviveu.", "Who has survived."),
                 familyBy("family", "A união que acabou.", "The union that has ended."),
                 sex(),
                 {"widowed_date", Day, "Fim da união.", "End of the union."},
                 decimal("widowed"),
                 cohort("period", "Primeiro ano do período em que a união acabou.",
                        "First year of the period in which the union ended."),
                 {"age", Number, "Idade exacta na viuvez, se há nascimento.",
                  "Exact age at widowhood, where there is a birth."},
                 {"duration", Number, "Anos da união que acabou.", "Years of the union that has ended."},
                 {"children_under_15", Whole, "Filhos da união com menos de 15 anos que não se sabe terem morrido.",
                  "Children of the union below 15 who aren't known to be dead."}},
                spell(),
                risk("Anos desde a viuvez no início: 0, ou mais se só depois é observado.",
                     "Years since widowhood at the beginning: 0, or more where observed only later.",
                     "1 se volta a casar.", "1 for a next marriage."),
                {familyBy("next_family", "A família desse casamento.", "The family of that marriage."),
                 exitBy({"marriage", "death", "unseen"},
                        "Como acaba a viuvez observada: marriage casa; death morre; unseen última prova de vida.",
                        "How the widowhood that is observed ends: marriage; death; unseen the last proof of life."),
                 approx()}}));
}

TableInfo leftOut()
{
    return table("nao_contados", "Quem não está nos ficheiros de episódios, e porquê.",
                 "Who isn't in the files of episodes, and why.", {"file", "reason"},
                 {{"file", Text, "De que ficheiro.", "From which file."},
                  {"reason", Text, "Porquê.", "Why, in Portuguese."},
                  {"n", Whole, "Quantos: famílias, ou pessoas.", "How many: families, or people."}});
}

TableInfo dictionary()
{
    return table("dicionario", "Todas as colunas destes ficheiros.", "All columns of these files.", {"file", "column"},
                 {{"file", Text, "O ficheiro, sem .csv.", "The file, without .csv."},
                  {"column", Text, "A coluna.", "The column."},
                  {"type", Text, "O tipo, como em datapackage.json.", "The type, as in datapackage.json."},
                  {"key", Flag, "1 se é da chave.", "1 where it is of the key."},
                  {"words", Text, "As palavras que pode ter; nada: qualquer valor.",
                   "The words that it may hold; empty: any value."},
                  {"leads_to", Text, "Ficheiro e coluna a que leva.", "File and column that it leads to."},
                  {"portuguese", Text, "O que contém, em português.", "What it holds, in Portuguese."},
                  {"english", Text, "O que contém, em inglês.", "What it holds, in English."}});
}

} // namespace

const std::vector<EpisodeTable>& episodeTables()
{
    static const std::vector<EpisodeTable> all{
        {people(), writePerson, nullptr},         {families(), nullptr, writeFamily},
        {fertility(), nullptr, writeFertility},   {childhood(), writeChildhood, nullptr},
        {adulthood(), writeAdulthood, nullptr},   {bounds(), writeBounds, nullptr},
        {singleLife(), writeSingleLife, nullptr}, {widowhood(), nullptr, writeWidowhood}};
    return all;
}

const TableInfo& leftOutTable()
{
    static const TableInfo table = leftOut();
    return table;
}

const TableInfo& dictionaryTable()
{
    static const TableInfo table = dictionary();
    return table;
}

} // namespace study::exchange

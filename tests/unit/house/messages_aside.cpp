#include "house/messages_aside.h"

namespace house {

const QStringList& toldAside()
{
    static const QStringList texts{
        // Put together at run time with the message that is explained.
        "… do indivíduo antes de …",
        "Guarda-se só o acto, e nada se escreve nas fichas.",
        "Com todas as pessoas só no acto, guarda-se o acto sem fichas.",
        "… A lista é a de ….",
        "A lista de nascimentos e baptismos não é alterada.",
        "A BDP em tratamento é fechada.",
        "A lista é a de antes.",
        "manda mexer num outro ficheiro",
        "não é o diário que um programa interrompido lá deixou",
        "não é um ficheiro comum",
        "guarda o que outro programa escreveu: a BDP tem de ser fechada primeiro por esse programa",
        // What is done: nothing to do about it.
        "Gravado: …",
        "A carregar fichas de família. Aguarde por favor ...",
        "A carregar fichas de indivíduo. Aguarde por favor ...",
        "A efectuar a cópia de segurança da BDP. Aguarde por favor ...",
        "A criar a BDP. Aguarde por favor ...",
        "Actos exportados: ….",
        "As definições foram guardadas na BDP.",
        "Guardado nas definições da BDP.",
        "A importação guardou só o acto.",
        "Fica só no acto: …",
        "Gravado em ….",
        "Desfeito: ….",
        "Verificada em …: ….",
        "Visto: …",
        "Lista escrita em ….",
        "Desfeita: ….",
        "As definições dos indicadores foram gravadas nesta BDP.",
        "Exportado para ….",
        "A importação de \"…\" foi desfeita.",
        "Saiu da BDP. …",
        "Importado para ….",
        "Gráfico gravado em ….",
        "Junto: … é agora ….",
        "Dado por certo: ….",
        "… é agora ….",
        "A família nº … é agora a nº ….",
        "… é da ….",
        "As regras e os limites foram gravados nesta BDP.",
        "Reposto: ….",
        "A BDP não foi alterada.",
        "A BDP tal como estava antes: …",
        // The state of a window, its questions and its hints.
        "No manual em PDF, é a página ….",
        "Escreva o que sabe. \"confIrmar\" (Alt+I) grava o indivíduo e passa ao seguinte; \"canceLar\" (Alt+L) acaba.",
        "Ainda não há indivíduos: carregue em \"Inserir\" (Alt+I) para o primeiro.",
        "Escolha o distrito, o concelho e a paróquia, e carregue em \"Atribuir\".",
        "Escolha um local, de cima para baixo, e carregue em \"Guardar\": fica na lista que as fichas oferecem.",
        ("Escolha o local, de cima para baixo, e carregue em \"Atribuir\": passa para a ficha. \"Guardar\" põe-no na "
         "lista."),
        "A cópia da demonstração está em ….",
        "Carregue em \"OK\" para trabalhar nesta BDP.",
        "Carregue no botão \"...\" da paróquia (Alt+P) e escolha a paróquia desta BDP.",
        "Carregue no botão \"...\" da localização (Alt+L) e diga em que pasta fica a BDP, e com que nome.",
        "Carregue no botão \"...\" da localização (Alt+L) e escolha o ficheiro da BDP.",
        ("Esta BDP ainda não tem ninguém. No menu \"BDParoquial\" escolha \"Indivíduos\" (Ctrl+I), e na ficha carregue "
         "em \"Inserir\"."),
        "&Que lugar é?",
        "&Que profissão é?",
        "&Quais das palavras da BDP?",
        "Lista de nascimentos e baptismos: …. Dá-se à BDP com \"orv-estudo baptismos\".",
        "Enter, ou um clique num número, mostra quem está por trás.",
        "Contado na BDP de ….",
        "Contado com definições alteradas: ….",
        "Gravar o gráfico: …",
        "Tudo está como no início.",
        "… valores alterados.",
        "São os que estão gravados nesta BDP.",
        "São os valores iniciais.",
        "São os que a última procura estimou.",
        "Foram estimados agora.",
        "São os de antes.",
        "Foram alterados à mão.",
        // What a plan is going to write.
        "Guarda-se só o acto: nada se escreve nas fichas.",
        "Os casamentos são numerados de novo, pelas datas.",
        "Perde-se, porque esta tabela não tem notas: ….",
        "… deixa de existir na tabela.",
        ("Os códigos dos lugares que ficam dentro continuam a começar por …: quem for buscar os lugares pelo começo do "
         "código não os vê em …."),
        "… lugares que ficam dentro passam para ….",
        "… fica com: ….",
        "A família nº … deixa de existir.",
        ("Antes de juntar, o programa guarda na pasta «copias» a cópia de hoje da BDP, se ainda não a há, ou diz "
         "porque não."),
        "A ficha do nº … deixa de existir.",
        "O acto em trabalho tem o nº …: escolha lá o nº … em vez dele.",
        "O tipo do nº … passa de «…» para «…».",
        "O nº … fica duas vezes no acto: uma linha… e outra….",
        "…: está igual nas duas fichas, fica uma.",
        "… interveniente passa a ter a data do acto que fica,….",
        "… intervenientes passam a ter a data do acto que fica,….",
        "Tipos recalculados: …",
        "O tipo da família nº … passa de … para ….",
        // What a report counts, and the notes in files that are exported.
        "Importação de … em …: … pessoas, … famílias.",
        "Pessoas: …; laços: …; componentes: ….",
        "…: idade média ao primeiro casamento (SMAM, Hajnal) … anos; … % de solteiros aos 50 anos.",
        "Da lista: …; das notas: …; notas sem um dia que se leia: …; com data da ficha aproximada: ….",
        "Pessoas que podem estar vivas e que não vão neste ficheiro: … (nascidas há menos de … anos, sem óbito).",
        "GEDCOM …, em ….",
        "Pessoas: …; famílias: ….",
        "Os números são os da exportação.",
        "Na lista de nascimentos e baptismos: ….",
        "Casamento n.º …: …",
        "Células que não podem estar nas suas tabelas.",
        ("Células que não podem estar nas suas tabelas: números que não levam a nenhum registo, e valores que a coluna "
         "não devia ter."),
        ("Cells that can't stand in their tables: numbers that lead to no record, and values that the column shouldn't "
         "hold."),
        "Locais, códigos e profissões: os do programa.",
        "Actos no ficheiro: …. …: ….",
        "Pessoas novas: …; já conhecidas: …; só no acto: ….",
        "Famílias novas: …; filhos de casais já conhecidos: ….",
        "Sexo tirado do nome próprio: ….",
        // What a way out or in is for.
        ("Um ficheiro com as pessoas e as famílias, para os programas de genealogia: quase todos lêem esta versão. O "
         "que ela não sabe dizer vai em notas."),
        ("O mesmo na versão mais nova, que diz mais: quem assistiu a cada acto, e em que papel. Nem todos os programas "
         "a lêem."),
        ("Uma pasta com todas as tabelas da BDP em CSV e a sua descrição (datapackage.json), para o R e outros "
         "programas. Delas se volta a fazer a mesma BDP. Vão todas as pessoas, também as que podem estar vivas."),
        ("As mesmas tabelas como o Excel em português as abre: com \";\", vírgula decimal e datas dd/mm/aaaa. Também "
         "delas se volta a fazer a BDP. Vão todas as pessoas, também as que podem estar vivas."),
        ("Uma pasta com as tabelas da Intermediate Data Structure, que as bases de dados da demografia histórica "
         "trocam "
         "entre si: cada facto numa linha, com o seu tipo, valor e data."),
        ("Uma pasta com quem esteve em risco de quê, e de quando a quando, pelas regras do estudo: fecundidade, "
         "mortalidade, casamento e recasamento, para a análise de sobrevivência, com um exemplo em R. Sem nomes."),
        ("Uma pasta com as tabelas de uma BDP, como a exportação as escreve ou feitas por outro programa, com os "
         "mesmos "
         "nomes e colunas. Delas se faz uma BDP nova; sem tabelas de locais, de códigos e de profissões, estes são os "
         "do programa."),
        ("Um ficheiro GEDCOM, 5.5.1 ou 7.0, de qualquer programa. Todas as pessoas e famílias ficam na BDP aberta com "
         "fichas novas; o que não tem coluna vai para as notas. Antes é feita uma cópia da BDP."),
    };
    return texts;
}

const QList<Joined>& joinedAtRunTime()
{
    static const QList<Joined> texts{
        {"Deve inserir o nome do indivíduo antes de …", "individuals/frmInd_edit.cpp", "Deve inserir o nome"},
        {"Deve especificar o sexo do indivíduo antes de …", "individuals/frmInd_edit.cpp", "Deve especificar o sexo"},
        {"Deve especificar o tipo do indivíduo antes de …", "individuals/frmInd_edit.cpp", "Deve especificar o tipo"},
        {"… as cópias desta BDP não se guardam nesta pasta.", "store/copiaDiaria.cpp",
         "as cópias desta BDP não se guardam nesta pasta."},
        {"… foi alterado depois.", "study/acts/undo.cpp", " foi alterado depois."},
        {"… (…) nasceu depois de ….", "study/acts/objections_families.cpp", "nasceu depois de %1."},
        {"… (…) tinha … quando nasceu ….", "study/acts/objections_families.cpp", "tinha %1 quando nasceu %2."},
        {"… (…) ainda não tinha nascido.", "study/acts/objections_families.cpp", "ainda não tinha nascido."},
        {"…, …: na BDP está outro valor, que não se altera.", "study/acts/work.cpp",
         ": na BDP está outro valor, que não se altera."},
        {"…: não há memória que chegue.", "study/windows/background.cpp", "não há memória que chegue."},
    };
    return texts;
}

bool isOfMessages(const QString& file)
{
    // Texts of the toolkit; rules, indicators and reports, which the study shows and explains beside them; rows of a
    // plan; what describes the columns of files that are exported.
    static const QStringList others{"platform/forms/portuguese.cpp",
                                    "study/checks/parts.cpp",
                                    "study/checks/rules_",
                                    "study/checks/words.cpp",
                                    "study/indicators/",
                                    "study/observation/",
                                    "study/report/",
                                    "study/statistics/",
                                    "study/acts/leftOut.cpp",
                                    "study/acts/plan_",
                                    "study/acts/sheet_fields.cpp",
                                    "study/acts/work.cpp",
                                    "study/exchange/episodeTables.cpp",
                                    "study/exchange/episodes.cpp",
                                    "study/exchange/idsTables.cpp",
                                    "study/exchange/idsWords.cpp",
                                    "study/exchange/labels.cpp",
                                    "study/exchange/tableList",
                                    "study/exchange/tablePackage.cpp",
                                    "study/windows/actChoices.cpp",
                                    "study/windows/subjectRecords.cpp",
                                    "study/windows/subjectSheet.cpp"};
    static const QStringList allTheSame{"study/indicators/settingEntries.cpp", "study/indicators/settingsJson.cpp",
                                        "study/indicators/tallyJson.cpp", "study/report/packageFiles.cpp"};
    if (allTheSame.contains(file)) return true;
    for (const QString& other : others)
        if (file.startsWith(other)) return false;
    return true;
}

} // namespace house

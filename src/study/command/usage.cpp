#include "study/command/usage.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace study {

namespace {

// What the parser fills, in its own kinds of text.
struct Read
{
    std::vector<std::string> files;
    std::string bdp;
    std::string columns;
    std::string overruling;
    std::string format;
    std::string severity;
    std::string output;
    std::string settings, list;
    std::string version, limit, dates, date; // of what is written
    bool spreadsheet = false;
    bool noPlaces = false, noProfessions = false;                  // that the BDP hasn't: none is made
    std::optional<std::string> birthWords = {}, baptismWords = {}; // "" is an answer, too
    bool linkCouples = false;
    bool help = false;
};

CLI::App* addSubcommand(CLI::App& app, const std::string& name)
{
    CLI::App* command = app.add_subcommand(name);
    command->set_help_flag();
    command->require_subcommand(0, 1);
    return command;
}

void addImport(CLI::App& command, Read& read, Order& order)
{
    command.add_option("ficheiros", read.files)->required();
    command.add_option("--bdp", read.bdp)->required();
    command.add_flag("--ensaio", order.rehearse);
    command.add_flag("--ligar-casais", read.linkCouples);
    command.add_flag("--lugares-novos", order.options.newPlaces);
    command.add_flag("--profissoes-novas", order.options.newProfessions);
    command.add_flag("--padres-novos", order.options.newPriests);
    command.add_option("--ressalva", read.overruling);
}

void addTableImport(CLI::App& command, Read& read, Order& order)
{
    addImport(command, read, order);
    command.add_option("--colunas", read.columns);
}

void addExport(CLI::App& command, Read& read, Order&)
{
    command.add_option("ficheiro", read.files)->required()->expected(1);
    command.add_option("--bdp", read.bdp)->required();
}

void addCheck(CLI::App& command, Read& read, Order& order)
{
    command.add_option("bdp", read.bdp)->required();
    command.add_option("--formato", read.format);
    command.add_option("--gravidade", read.severity);
    command.add_flag("--vistos", order.withSeen);
}

void addBdp(CLI::App& command, Read& read, Order&)
{
    command.add_option("bdp", read.bdp)->required();
}

void addFiles(CLI::App& command, Read& read, Order&)
{
    command.add_option("ficheiros", read.files)->required();
}

void addFigures(CLI::App& command, Read& read, Order& order)
{
    addFiles(command, read, order);
    command.add_option("-o", read.output)->required();
}

void addNetwork(CLI::App& command, Read& read, Order& order)
{
    addBdp(command, read, order);
    command.add_option("-o", read.output)->required();
}

void addSettings(CLI::App& command, Read& read, Order& order)
{
    addBdp(command, read, order);
    command.add_option("--de", read.settings);
}

void addBaptisms(CLI::App& command, Read& read, Order& order)
{
    addBdp(command, read, order);
    command.add_option("--lista", read.list);
    const auto into = [](std::optional<std::string>& words) {
        return [&words](const std::string& given) { words = given; };
    };
    command.add_option_function<std::string>("--nascido", into(read.birthWords));
    command.add_option_function<std::string>("--baptizado", into(read.baptismWords));
    command.add_flag("--gravar", order.keep);
}

void addGedcom(CLI::App& command, Read& read, Order& order)
{
    addBdp(command, read, order);
    command.add_option("alvo", read.output)->required();
    command.add_option("--versao", read.version);
    command.add_option("--limite", read.limit);
    command.add_option("--datas", read.dates);
    command.add_flag("--associacoes", order.out.associationsTwice);
}

void addTables(CLI::App& command, Read& read, Order& order)
{
    addBdp(command, read, order);
    command.add_option("pasta", read.output)->required();
    command.add_flag("--excel", read.spreadsheet);
    command.add_flag("--sem-orfas", order.out.emptyOrphans);
}

void addIds(CLI::App& command, Read& read, Order& order)
{
    addBdp(command, read, order);
    command.add_option("pasta", read.output)->required();
    command.add_flag("--maiusculas", order.out.upperCase);
    command.add_flag("--relacao-inversa", order.out.reversedRelations);
    command.add_flag("--filhos-em-casa", order.out.childrenAtHome);
    command.add_option("--limite", read.limit);
    command.add_option("--data", read.date);
}

void addEpisodes(CLI::App& command, Read& read, Order& order)
{
    addBdp(command, read, order);
    command.add_option("pasta", read.output)->required();
    command.add_option("--limite", read.limit);
}

void addTablesImport(CLI::App& command, Read& read, Order& order)
{
    command.add_option("pasta", read.files)->required()->expected(1);
    command.add_option("--bdp", read.bdp)->required();
    command.add_flag("--ensaio", order.rehearse);
}

void addGedcomImport(CLI::App& command, Read& read, Order& order)
{
    command.add_option("ficheiro", read.files)->expected(0, 1);
    command.add_option("--bdp", read.bdp)->required();
    command.add_flag("--ensaio", order.rehearse);
    command.add_flag("--desfazer", order.takeBack);
    command.add_flag("--sem-lugares", read.noPlaces);
    command.add_flag("--sem-profissoes", read.noProfessions);
}

// What the user may ask for. Of two at once the first one here is done.
struct Command
{
    CLI::App* said;
    Order::Work work;
    QString way; // of an export or an import
};

std::vector<Command> addCommands(CLI::App& app, CLI::App& import, CLI::App& exported, Read& read, Order& order)
{
    using enum Order::Work;
    struct Known
    {
        CLI::App* of;
        const char* name;
        Order::Work work;
        void (*add)(CLI::App&, Read&, Order&);
        const char* way = ""; // the usual one of several
    };
    const Known all[] = {{&import, "kleio", ImportKleio, addImport},
                         {&import, "tabela", ImportTable, addTableImport},
                         {&import, "tabelas", Import, addTablesImport, "tabelas"},
                         {&import, "gedcom", ImportGedcom, addGedcomImport, "gedcom"},
                         {&exported, "kleio", ExportKleio, addExport},
                         {&exported, "gedcom", Export, addGedcom, "gedcom-5.5.1"},
                         {&exported, "tabelas", Export, addTables, "tabelas"},
                         {&exported, "ids", Export, addIds, "ids"},
                         {&exported, "episodios", Export, addEpisodes, "episodios"},
                         {&app, "verificar", Check, addCheck},
                         {&app, "contagens", Count, addBdp},
                         {&app, "juntar", Join, addFiles},
                         {&app, "relatorio", Report, addFigures},
                         {&app, "tabelas", Tables, addFigures},
                         {&app, "smam", Smam, addFiles},
                         {&app, "rede", Network, addNetwork},
                         {&app, "baptismos", Baptisms, addBaptisms},
                         {&app, "definicoes", Settings, addSettings}};
    std::vector<Command> commands;
    for (const Known& known : all) {
        commands.push_back({addSubcommand(*known.of, known.name), known.work, known.way});
        known.add(*commands.back().said, read, order);
    }
    return commands;
}

std::optional<QString> textOf(const std::optional<std::string>& words)
{
    return words ? std::optional(QString::fromStdString(*words)) : std::nullopt;
}

void take(const Read& read, Order& order)
{
    for (const std::string& file : read.files)
        order.files << QString::fromStdString(file);
    order.bdp = QString::fromStdString(read.bdp);
    order.in = {.newPlaces = !read.noPlaces, .newProfessions = !read.noProfessions};
    order.output = QString::fromStdString(read.output);
    order.columns = QString::fromStdString(read.columns);
    order.options.overruling = QString::fromStdString(read.overruling);
    if (read.linkCouples) order.options.rule = LinkRule::CouplesWithOpenSpan;
    order.settings = QString::fromStdString(read.settings);
    order.list = QString::fromStdString(read.list);
    order.birthWords = textOf(read.birthWords);
    order.baptismWords = textOf(read.baptismWords);
}

// "", or which word of a check isn't understood.
QString readWords(const Read& read, Order& order)
{
    using enum Order::Format;
    static const std::map<std::string, Order::Format> formats{{"texto", Text}, {"csv", Csv}, {"json", Json}};
    static const std::map<std::string, checks::Severity> severities{{"impossivel", checks::Severity::Impossible},
                                                                    {"impossível", checks::Severity::Impossible},
                                                                    {"aviso", checks::Severity::Unlikely},
                                                                    {"informacao", checks::Severity::Information},
                                                                    {"informação", checks::Severity::Information}};
    if (const auto format = formats.find(read.format); format != formats.end())
        order.format = format->second;
    else if (!read.format.empty())
        return "O formato é texto, csv ou json, e não \"" + QString::fromStdString(read.format) + "\".";
    if (const auto severity = severities.find(read.severity); severity != severities.end())
        order.least = severity->second;
    else if (!read.severity.empty())
        return "A gravidade é impossivel, aviso ou informacao, e não \"" + QString::fromStdString(read.severity) +
               "\".";
    return {};
}

// "", or what of the way out isn't understood.
QString readExportWords(const Read& read, Order& order)
{
    static constexpr int mostYears = 1000;
    if (read.spreadsheet) order.way = "tabelas-excel";
    if (read.version == "7.0")
        order.way = "gedcom-7.0";
    else if (!read.version.empty() && read.version != "5.5.1")
        return "A versão é 5.5.1 ou 7.0, e não \"" + QString::fromStdString(read.version) + "\".";
    if (read.dates == "bapm")
        order.out.birthDates = exchange::BirthDates::Baptisms;
    else if (read.dates == "birt")
        order.out.birthDates = exchange::BirthDates::Births;
    else if (!read.dates.empty() && read.dates != "chr")
        return "As datas são chr, bapm ou birt, e não \"" + QString::fromStdString(read.dates) + "\".";
    const QString day = QString::fromStdString(read.date);
    order.out.version = QDate::fromString(day, Qt::ISODate);
    if (!day.isEmpty() && !order.out.version.isValid()) return "A data é AAAA-MM-DD, e não \"" + day + "\".";
    if (read.limit.empty()) return {};
    const QString limit = QString::fromStdString(read.limit);
    bool isNumber = false;
    order.out.limitYears = limit.toInt(&isNumber);
    if (isNumber && order.out.limitYears >= 0 && order.out.limitYears <= mostYears) return {};
    return "O limite é um número de anos, e não \"" + limit + "\".";
}

QString inPortuguese(const CLI::ParseError& error)
{
    const QString what = QString::fromStdString(error.what());
    if (dynamic_cast<const CLI::RequiredError*>(&error)) return "Falta um argumento: " + what.section(' ', 0, 0);
    if (dynamic_cast<const CLI::ExtrasError*>(&error)) return "Não se entende: " + what.section(": ", 1);
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error)) return "Falta o valor de " + what.section(':', 0, 0);
    return "Os argumentos não se entendem.";
}

std::vector<std::string> reversed(const QStringList& arguments)
{
    std::vector<std::string> words;
    words.reserve(arguments.size());
    for (const QString& argument : arguments)
        words.push_back(argument.toStdString());
    std::reverse(words.begin(), words.end()); // as the parser takes them
    return words;
}

} // namespace

QString readArguments(const QStringList& arguments, Order& order)
{
    Read read;
    CLI::App app;
    app.set_help_flag();
    app.add_flag("-h,--help,--ajuda", read.help);
    CLI::App& import = *addSubcommand(app, "importar");
    CLI::App& exported = *addSubcommand(app, "exportar");
    const std::vector<Command> commands = addCommands(app, import, exported, read, order);
    try {
        app.parse(reversed(arguments));
    } catch (const CLI::ParseError& error) {
        if (!read.help) return inPortuguese(error);
    }
    take(read, order);
    if (read.help) return {};
    const auto isSaid = [](const Command& command) { return command.said->parsed(); };
    const auto command = std::find_if(commands.begin(), commands.end(), isSaid);
    if (command == commands.end()) return "Falta dizer o que fazer.";
    order.work = command->work;
    order.way = command->way;
    if (order.work == Order::Work::Count) order.files = {order.bdp};
    if (order.work == Order::Work::ImportGedcom && order.files.isEmpty() != order.takeBack)
        return order.takeBack ? "Para desfazer a última importação não se diz nenhum ficheiro."
                              : "Falta um argumento: ficheiro";
    if (const QString why = readExportWords(read, order); !why.isEmpty()) return why;
    return readWords(read, order);
}

QString helpText()
{
    return R"(Uso:
  orv-estudo importar kleio FICHEIRO… --bdp PAROQUIA.orv [opções]
  orv-estudo importar tabela FICHEIRO… --bdp PAROQUIA.orv [--colunas COLUNAS.json] [opções]
  orv-estudo exportar kleio --bdp PAROQUIA.orv FICHEIRO
  orv-estudo exportar gedcom PAROQUIA.orv ALVO.ged [--versao 5.5.1|7.0] [--limite ANOS] [--datas chr|bapm|birt]
                             [--associacoes]
  orv-estudo exportar tabelas PAROQUIA.orv PASTA [--excel] [--sem-orfas]
  orv-estudo exportar ids PAROQUIA.orv PASTA [--maiusculas] [--relacao-inversa] [--filhos-em-casa]
                      [--limite ANOS] [--data AAAA-MM-DD]
  orv-estudo exportar episodios PAROQUIA.orv PASTA [--limite ANOS]
  orv-estudo importar tabelas PASTA --bdp NOVA.orv [--ensaio]
  orv-estudo importar gedcom FICHEIRO.ged --bdp PAROQUIA.orv [--ensaio] [--sem-lugares] [--sem-profissoes]
  orv-estudo importar gedcom --bdp PAROQUIA.orv --desfazer [--ensaio]
  orv-estudo verificar PAROQUIA.orv [--formato csv|json] [--gravidade GRAVIDADE] [--vistos]
  orv-estudo contagens PAROQUIA.orv > CONTAGENS.json
  orv-estudo juntar CONTAGENS.json… > TODAS.json
  orv-estudo relatorio FICHEIRO… -o RELATORIO.html
  orv-estudo tabelas FICHEIRO… -o PASTA
  orv-estudo smam LISTA.csv…
  orv-estudo rede PAROQUIA.orv -o PASTA
  orv-estudo definicoes PAROQUIA.orv [--de DEFINICOES.json]
  orv-estudo baptismos PAROQUIA.orv [--lista LISTA.csv] [--nascido PALAVRAS] [--baptizado PALAVRAS] [--gravar]

Opções da importação:
  --ensaio             diz o que seria escrito, e não escreve nada
  --ligar-casais       o pai e a mãe de um baptismo são os do único casal da BDP que pode ter
                       tido a criança; sem isto, ninguém é tomado por pessoa já conhecida
  --lugares-novos      cria na paróquia os lugares que a BDP não tem
  --profissoes-novas   cria as profissões que a BDP não tem
  --padres-novos       cada celebrante fica com uma ficha; sem isto, o nome fica só no acto
  --ressalva RAZÃO     guarda também os actos com objecções que se podem ressalvar, por esta razão

Antes de escrever é feita uma cópia da BDP, na pasta "copias" ao lado dela. Cada ficheiro é guardado
por inteiro ou não é guardado; Ctrl+C interrompe. Um ficheiro danificado é recusado com a linha e a
razão. O programa não pode ter a BDP aberta.

Exportar gedcom escreve as pessoas e as famílias para os programas de genealogia. A BDP não é alterada; o
programa pode tê-la aberta.
  --versao             5.5.1, que quase todos lêem, se nada for dito; ou 7.0, que diz mais
  --limite             quem pode estar vivo não vai: nascido há menos de ANOS (110, se nada for dito) e sem
                       óbito; 0 leva todos
  --datas              o que são as datas de nascimento das fichas: chr, baptismos de crianças, se nada for
                       dito; bapm, baptismos; birt, nascimentos. Onde as notas dizem as duas, vão as duas
  --associacoes        os padrinhos, as testemunhas e os celebrantes vão também no acto (em 5.5.1, como _ASSO, que só
                       alguns programas lêem), ou também na pessoa (em 7.0)

Exportar tabelas escreve na pasta todas as tabelas da BDP em CSV, com a sua descrição (datapackage.json). O que
não pode estar na sua tabela (números que não levam a nenhum registo) vai para problemas.csv. A BDP não é alterada.
  --excel              para o Excel em português: ";", vírgula decimal, datas dd/mm/aaaa
  --sem-orfas          os números que não levam a nenhum registo ficam vazios, e não vão para problemas.csv

Exportar ids escreve na pasta as tabelas da Intermediate Data Structure, versão 4 (INDIVIDUAL, INDIV_INDIV,
INDIV_CONTEXT, CONTEXT, CONTEXT_CONTEXT e METADATA) em CSV. A BDP não é alterada.
  --maiusculas         os tipos em maiúsculas: BIRTH_DATE
  --relacao-inversa    Id_I_2 é a relação de Id_I_1; sem isto, Id_I_1 é a de Id_I_2. Há sempre os dois sentidos
  --filhos-em-casa     a residência de uma família é também a dos filhos que vivem com ela
  --limite             como em exportar gedcom
  --data               dia que fica no nome da base (Id_D); sem isto, o da última escrita na BDP

Exportar episodios escreve na pasta quem esteve em risco de quê, e de quando a quando, em CSV: para quem estuda a
fecundidade, a mortalidade, o casamento e o recasamento com programas de análise de sobrevivência. Conta com as
definições do estudo, como os indicadores; vão as colunas descritas, e um exemplo em R. Não leva nomes.
  --limite             como em exportar gedcom

Importar tabelas faz da pasta de exportar tabelas uma BDP nova, igual à primeira, linha por linha; nada é escrito por
cima. Bastam algumas tabelas, com os nomes e as colunas de uma BDP; os locais, os códigos e as profissões são
os do programa, se não houver nenhuma tabela deles. Um ficheiro com erros é recusado com a linha e a razão.
  --ensaio             lê tudo, diz os erros, e não escreve nada

Importar gedcom põe na BDP as pessoas e as famílias de um ficheiro GEDCOM, 5.5.1 ou 7.0, de qualquer programa.
Todas são fichas novas; os números de uma exportação do ORV ficam, se a BDP não tem fichas. O que não tem coluna
vai para as notas. Os lugares que a BDP não tem são criados, provisórios, na freguesia que é dita. Antes é feita
uma cópia da BDP; o ficheiro vai todo, ou nada; o programa não pode ter a BDP aberta.
  --ensaio             diz o que seria escrito, e não escreve nada
  --sem-lugares        não cria lugares; --sem-profissoes: nem profissões: os nomes vão para as notas
  --desfazer           tira da BDP tudo o que veio com a última importação, se ninguém lhe mexeu depois; antes é
                       feita uma cópia da BDP

Verificar diz o que se contradiz na BDP, com as regras e os limites que ela tem, e não escreve nada; o
programa pode tê-la aberta, e o ficheiro pode ser só de leitura.
  --formato            texto, se nada for dito; csv, em UTF-8 e com ";"; ou json
  --gravidade          impossivel, aviso ou informacao: o que for menos grave não é dito
  --vistos             diz também os casos que foram dados por vistos
Fim da verificação: 0 nada, 1 há contradições, 2 não se pôde verificar.

Contagens diz, em JSON, o que se contou na BDP para os indicadores do estudo, com as definições que ela tem;
juntar soma as de várias freguesias, se foram feitas com as mesmas definições. Relatorio faz uma página com
todos os quadros e gráficos, e tabelas um ficheiro CSV de cada quadro, com a sua descrição, na pasta: de uma
ou de várias BDP (.orv) ou contagens (.json). Nenhuma BDP é alterada; o programa pode tê-la aberta.

Smam diz a idade média ao primeiro casamento pelos solteiros de uma lista, como a de um recenseamento: um
CSV com as colunas grupo (15–19 a 50–54, os oito) e solteiros, em percentagem; ou em número, com a coluna
todos ao lado. Nenhuma BDP a pode dar: diz de quem casou, e não de quem não casou.

Rede escreve na pasta quem foi padrinho, compadre e testemunha de quem: arestas, pessoas e componentes em CSV, e
tudo em GraphML (rede.graphml).

Definicoes diz as definições do estudo, em JSON; com --de, guarda na BDP as de um ficheiro assim: as que ele não
tem ficam como é regra. Baptismos diz, de cada criança, o que se lê do nascimento e do baptismo, e não guarda
nada sem --gravar:
  --lista              CSV com as colunas nind;data_nascimento;data_baptismo
  --nascido            palavras das notas da ficha antes do dia do nascimento, como "nasceu a; n.": a data da
                       ficha é então a do baptismo
  --baptizado          o mesmo para o baptismo: a data da ficha é então a do nascimento
Para guardar, o programa não pode ter a BDP aberta.

Fim das contagens, de juntar, do relatório, das tabelas, de smam, da rede, das definições e dos baptismos: 0 feito,
2 não se pôde fazer.

Fim do resto: 0 feito, 1 recusado ou interrompido, 2 argumentos que não se entendem, 3 de um dos ficheiros
nenhum acto se pôde guardar.
)";
}

} // namespace study

#include "study/command/usage.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <algorithm>
#include <map>
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
    std::string settings, list, birthWords, baptismWords;
    bool linkCouples = false;
    bool help = false;
};

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

CLI::App* addSubcommand(CLI::App& app, const std::string& name)
{
    CLI::App* command = app.add_subcommand(name);
    command->set_help_flag();
    command->require_subcommand(0, 1);
    return command;
}

void addCheck(CLI::App& command, Read& read, Order& order)
{
    command.add_option("bdp", read.bdp)->required();
    command.add_option("--formato", read.format);
    command.add_option("--gravidade", read.severity);
    command.add_flag("--vistos", order.withSeen);
}

void addFigures(CLI::App& command, Read& read)
{
    command.add_option("ficheiros", read.files)->required();
    command.add_option("-o", read.output)->required();
}

// What sets a study, and the words that were given for it.
struct SettingCommands
{
    CLI::App* settings = nullptr;
    CLI::App* baptisms = nullptr;
    CLI::Option* birthWords = nullptr;
    CLI::Option* baptismWords = nullptr;

    // Whether it is one of these.
    bool take(const Read& read, Order& order) const
    {
        if (settings->parsed()) order.work = Order::Work::Settings;
        if (baptisms->parsed()) order.work = Order::Work::Baptisms;
        order.settings = QString::fromStdString(read.settings);
        order.list = QString::fromStdString(read.list);
        if (birthWords->count() > 0) order.birthWords = QString::fromStdString(read.birthWords);
        if (baptismWords->count() > 0) order.baptismWords = QString::fromStdString(read.baptismWords);
        return settings->parsed() || baptisms->parsed();
    }
};

SettingCommands addSettings(CLI::App& app, Read& read, Order& order)
{
    SettingCommands all{addSubcommand(app, "definicoes"), addSubcommand(app, "baptismos")};
    for (CLI::App* const command : {all.settings, all.baptisms})
        command->add_option("bdp", read.bdp)->required();
    all.settings->add_option("--de", read.settings);
    all.baptisms->add_option("--lista", read.list);
    all.birthWords = all.baptisms->add_option("--nascido", read.birthWords);
    all.baptismWords = all.baptisms->add_option("--baptizado", read.baptismWords);
    all.baptisms->add_flag("--gravar", order.keep);
    return all;
}

// All tables of a BDP, and a BDP made of them.
struct TableCommands
{
    CLI::App* exported = nullptr;
    CLI::App* imported = nullptr;

    // Whether it is one of these.
    bool take(Order& order) const
    {
        if (exported->parsed()) order.work = Order::Work::ExportTables;
        if (imported->parsed()) order.work = Order::Work::ImportTables;
        return exported->parsed() || imported->parsed();
    }
};

TableCommands addTables(CLI::App& exports, CLI::App& imports, Read& read, Order& order)
{
    const TableCommands both{addSubcommand(exports, "tabelas"), addSubcommand(imports, "tabelas")};
    both.exported->add_option("bdp", read.bdp)->required();
    both.exported->add_option("pasta", read.output)->required();
    both.exported->add_flag("--excel", order.spreadsheet);
    both.exported->add_flag("--sem-orfas", order.emptyOrphans);
    both.imported->add_option("pasta", read.files)->required()->expected(1);
    both.imported->add_option("--bdp", read.bdp)->required();
    both.imported->add_flag("--ensaio", order.rehearse);
    return both;
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
    CLI::App* const import = addSubcommand(app, "importar");
    CLI::App* const kleio = addSubcommand(*import, "kleio");
    CLI::App* const table = addSubcommand(*import, "tabela");
    CLI::App* const exports = addSubcommand(app, "exportar");
    CLI::App* const exported = addSubcommand(*exports, "kleio");
    const TableCommands allTables = addTables(*exports, *import, read, order);
    addImport(*kleio, read, order);
    addImport(*table, read, order);
    table->add_option("--colunas", read.columns);
    exported->add_option("ficheiro", read.files)->required()->expected(1);
    exported->add_option("--bdp", read.bdp)->required();
    CLI::App* const check = addSubcommand(app, "verificar");
    addCheck(*check, read, order);
    CLI::App* const counts = addSubcommand(app, "contagens");
    counts->add_option("bdp", read.bdp)->required();
    CLI::App* const join = addSubcommand(app, "juntar");
    join->add_option("ficheiros", read.files)->required();
    CLI::App* const report = addSubcommand(app, "relatorio");
    addFigures(*report, read);
    CLI::App* const tables = addSubcommand(app, "tabelas");
    addFigures(*tables, read);
    CLI::App* const smam = addSubcommand(app, "smam");
    smam->add_option("ficheiros", read.files)->required();
    CLI::App* const network = addSubcommand(app, "rede");
    network->add_option("bdp", read.bdp)->required();
    network->add_option("-o", read.output)->required();
    const SettingCommands setting = addSettings(app, read, order);
    try {
        app.parse(reversed(arguments));
    } catch (const CLI::ParseError& error) {
        if (!read.help) return inPortuguese(error);
    }
    for (const std::string& file : read.files)
        order.files << QString::fromStdString(file);
    order.bdp = QString::fromStdString(read.bdp);
    order.output = QString::fromStdString(read.output);
    order.columns = QString::fromStdString(read.columns);
    order.options.overruling = QString::fromStdString(read.overruling);
    if (read.linkCouples) order.options.rule = LinkRule::CouplesWithOpenSpan;
    if (read.help) return {};
    if (kleio->parsed())
        order.work = Order::Work::ImportKleio;
    else if (table->parsed())
        order.work = Order::Work::ImportTable;
    else if (exported->parsed())
        order.work = Order::Work::ExportKleio;
    else if (check->parsed())
        order.work = Order::Work::Check;
    else if (counts->parsed()) {
        order.work = Order::Work::Count;
        order.files = {order.bdp};
    } else if (join->parsed())
        order.work = Order::Work::Join;
    else if (report->parsed())
        order.work = Order::Work::Report;
    else if (tables->parsed())
        order.work = Order::Work::Tables;
    else if (smam->parsed())
        order.work = Order::Work::Smam;
    else if (network->parsed())
        order.work = Order::Work::Network;
    else if (!allTables.take(order) && !setting.take(read, order))
        return "Falta dizer o que fazer.";
    return readWords(read, order);
}

QString helpText()
{
    return R"(Uso:
  orv-estudo importar kleio FICHEIRO… --bdp PAROQUIA.orv [opções]
  orv-estudo importar tabela FICHEIRO… --bdp PAROQUIA.orv [--colunas COLUNAS.json] [opções]
  orv-estudo exportar kleio --bdp PAROQUIA.orv FICHEIRO
  orv-estudo exportar tabelas PAROQUIA.orv PASTA [--excel] [--sem-orfas]
  orv-estudo importar tabelas PASTA --bdp NOVA.orv [--ensaio]
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

Exportar tabelas escreve na pasta todas as tabelas da BDP em CSV, com a sua descrição (datapackage.json). O que
não pode estar na sua tabela (números que não levam a nenhum registo) vai para problemas.csv. A BDP não é alterada.
  --excel              para o Excel em português: ";", vírgula decimal, datas dd/mm/aaaa
  --sem-orfas          os números que não levam a nenhum registo ficam vazios, e não vão para problemas.csv
Importar tabelas faz de uma pasta assim uma BDP nova, igual à primeira, linha por linha; nada é escrito por
cima. Bastam algumas tabelas, com os nomes e as colunas de uma BDP; os locais, os códigos e as profissões são
os do programa, se não houver nenhuma tabela deles. Um ficheiro com erros é recusado com a linha e a razão.
  --ensaio             lê tudo, diz os erros, e não escreve nada

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

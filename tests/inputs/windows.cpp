#include "inputs/windows.h"

namespace {

using namespace Inputs;

const QStringList person{"menu mnuEditInd"}, family{"menu mnuEditFam"};

QStringList from(const QStringList& way, const QString& step)
{
    return way + QStringList{step};
}

QList<Edit> editsOf(const QString& add, const QString& alter, const QString& remove)
{
    return {{add, add, alter, true}, {alter, alter, remove}};
}

const QList<Edit> usual = editsOf("cmdIns", "cmdAlt", "cmdElim"), shortNames = editsOf("cmdI", "cmdA", "cmdE");

Field place(const QString& list, const QString& code, const QString& letter, int oddities = None)
{
    return {list, Kind::Place, code, letter, oddities};
}

Field field(const QString& control, Kind kind, const QString& column, int oddities = None)
{
    return {control, kind, column, {}, oddities};
}

// That a date is known to the day says nothing without one.
Field flag(const QString& control, const QString& column, const QString& date)
{
    return {control, Kind::Flag, column, date, WithDate};
}

Field option(const QString& control)
{
    return {control, Kind::Option, {}, {}, NotStored};
}

Window individual()
{
    using enum Kind;
    return {"individuo",
            "frmInd",
            person,
            "frmInd",
            {},
            "individuo",
            {{"nind", "txtNind"}},
            {},
            usual,
            {field("txtNome", Text, "nome"),
             field("cmbTipoInd", Word, "tipo"),
             option("optSexo_0"),
             option("optSexo_1"),
             option("optSexo_2"),
             field("txtTit", Text, "titulo"),
             field("txtAlcunha", Text, "alcunha"),
             field("mskini", Date, "inicioobs"),
             field("mskFim", Date, "fimobs"),
             field("txtObs", Text, "obs"),
             field("mskDtNasc", Date, "datanasc"),
             flag("chkDtNasc", "dnascfixa", "datanasc"),
             place("cmbLoc", "localnasc", "tipolocalnasc"),
             field("cmbFiliacao", Code, "filiacao"),
             field("txtIdPai", Whole, "idadepai"),
             field("cmbECPai", Code, "estadocivilpai"),
             field("txtIdMae", Whole, "idademae", NotAsTyped),
             field("cmbECMae", Code, "estadocivilmae"),
             field("mskDtObito", Date, "dataobito"),
             flag("chkDFixa", "dobitofixa", "dataobito"),
             field("txtIdade", Whole, "idadeobito"),
             field("chkMenor", Flag, "menor"),
             place("cmbLocObito", "localobito", "tipolocalobito"),
             field("cmbEC", Code, "estadoobito"),
             field("cmbSacram", Code, "sacramentos"),
             field("cmbclass", Code, "classparoquial"),
             field("txtCausa", Text, "causa"),
             option("optTest_0"),
             option("optTest_1"),
             field("txtNind", Whole, "nind")},
            {"cmdEncLoc", "cmdLocOb"},
            {"assistente"}};
}

// Kept: its row is written before its members.
Window couple()
{
    using enum Kind;
    Window window{"familia",
                  "frmFam",
                  family,
                  "frmFam",
                  {},
                  "familia",
                  {{"nfamilia", "txtNFam"}},
                  {},
                  usual,
                  {field("cmbSit", Code, "sfamilia"), field("cmbTipoFam", Word, "tipocasal"),
                   field("txtPnind", Whole, {}, NotStored), field("txtIdade1", Whole, {}, NotStored),
                   field("txtNC1", Whole, {}, NotStored), field("cmbEC1", Code, {}, NotStored),
                   field("txtSnind", Whole, {}, NotStored), field("txtIdade2", Whole, {}, NotStored),
                   field("txtNC2", Whole, {}, NotStored), field("cmbEC2", Code, {}, NotStored),
                   field("mskData", Date, "datacasam"), flag("chkDF", "dcasamfixa", "datacasam"),
                   place("cmbLoc", "localcasam", "tipolocalcasam"), field("mskini", Date, "inicioobs"),
                   field("mskFim", Date, "fimobs"), field("txtObs", Text, "obs")},
                  {"cmdEncLoc"},
                  {"familias", "assistente"}};
    window.rowStays = true;
    return window;
}

Window professions()
{
    using enum Kind;
    return {"profissoes",
            "frmProf",
            from(person, "click frmInd.cmdProf"),
            "frmInd",
            "dtgProf",
            "profissoes",
            {{"nind", "txtNind"}},
            {{"idprofissao", "dtgProf:0"}},
            usual,
            {field("mskData", Date, "dataref"), field("chkDF", Flag, "datafixa"),
             field("cmbProf", Code, "codprof", KeptWhenBlank), field("txtFonte", Text, "fonte", Lingers),
             field("txtObs", Text, "obs", Lingers)}};
}

Window residences(const QString& name, const QStringList& way, const QString& card)
{
    using enum Kind;
    return {name,
            "frmResid",
            from(way, "click " + card + ".cmdResid"),
            card,
            "dtgResid",
            "residencia",
            {{"numero", "txtNum"}},
            {},
            usual,
            {field("mskData", Date, "dataref"), field("chkDF", Flag, "datafixa"),
             place("cmbLoc", "localresid", "tipolocal"), field("txtFonte", Text, "fonte"),
             field("txtObs", Text, "obs")},
            {"cmdLoc"}};
}

Window signatures()
{
    using enum Kind;
    return {"assinatura",
            "frmAssinatura",
            from(person, "click frmInd.cmdAssin"),
            "frmInd",
            "dtgAssinat",
            "assinatura",
            {{"nind", "txtNind"}},
            {{"idassinatura", "dtgAssinat:0"}},
            usual,
            {field("mskData", Date, "dataref"), field("chkDF", Flag, "datafixa"), field("txtAssina", Text, "assina"),
             field("txtNivel", Whole, "nivelassinatura"), field("txtFuncao", Text, "funcao"),
             field("txtLocAss", Path, "assinatura"), field("txtIdade", Whole, "idade"),
             field("txtFonte", Text, "fonte"), field("txtObs", Text, "obs")}};
}

Window legacies()
{
    using enum Kind;
    return {"legados",
            "frmLegados",
            from(person, "click frmInd.cmdLegProf"),
            "frmInd",
            "dtgLeg",
            "legadosprofanos",
            {{"nind", "txtNind"}},
            {{"idlegprof", "dtgLeg:0"}},
            shortNames,
            {field("txtNindH", Whole, "nindherd"), field("cmbParentesco", Code, "parentesco"),
             field("txtMov", Text, "bensmoveis"), field("txtRaiz", Text, "bensraiz"), field("txtObs", Text, "obs")},
            {"cmdIrpara"}};
}

Window suffrages()
{
    using enum Kind;
    return {"sufragios",
            "frmRituais",
            from(person, "click frmInd.cmdRMorte"),
            "frmInd",
            "dtgRit",
            "rituaismorte",
            {{"nind", "txtNind"}},
            {{"idlegpio", "dtgRit:0"}},
            shortNames,
            {option("optLeg_0"), option("optLeg_1"), option("optLeg_2"), field("cmbTipo", Code, "tipo", Lingers),
             field("txtQ", Amount, "quantidade"), field("txtVU", Amount, "valorunit"),
             field("cmbMoeda_0", Currency, "tipomoeda", Lingers), field("txtVTotal", Amount, "valortotal"),
             field("txtDest", Text, "destino"), field("txtNP", Whole, "numpadres"), field("txtObs", Text, "obs")}};
}

// Kept: an alteration renumbers every passport of the person, and blanks leave destination and notes as they were.
Window passports()
{
    using enum Kind;
    Window window{"passaporte",
                  "frmPass",
                  from(person, "menu mnuPass"),
                  "frmInd",
                  "flgPass",
                  "passaporte",
                  {{"nind", "Label2_1"}},
                  {},
                  usual,
                  {field("txtDados_0", Amount, "npass"), field("mskData", Date, "dataref"),
                   place("cmbDados_1", "localdestino", "tipolocaldest", KeptWhenBlank),
                   field("txtOutras_1", Text, "obs", KeptWhenBlank)},
                  {"cmdLoc"}};
    window.several = true;
    return window;
}

Window description()
{
    using enum Kind;
    return {"fisico",
            "frmPass",
            from(person, "menu mnuPass"),
            "frmInd",
            {},
            "individuo",
            {{"nind", "Label2_1"}},
            {},
            {{"cmdE", "cmdE", {}}},
            {field("cmbDados_0", Word, "estatura", Lingers), field("txtDados_1", Whole, "altura", Lingers),
             field("txtOutras_0", Text, "cfisicas", Lingers)}};
}

Window funeral()
{
    using enum Kind;
    return {"funeral",
            "frmFuneral",
            from(person, "click frmInd.cmdCerFun"),
            "frmInd",
            {},
            "individuo",
            {{"nind", "txtNind"}},
            {},
            {{"cmdE", "cmdE", "cmdF"}},
            {field("txtNindP", Whole, "primpadreobito"), field("cmbFuncao", Code, "funcprimpobito"),
             field("txtMort", Text, "mortalha"), field("txtIgreja", Text, "igreja"),
             field("txtEnterro", Text, "enterro")},
            {"cmdIrpara"}};
}

Window assistants(const QString& name, const QStringList& way, bool marriage)
{
    using enum Kind;
    Window window{name,
                  "frmIntervenientes",
                  way,
                  marriage ? "frmFam" : "frmInd",
                  "dtInterv",
                  "assistente",
                  {{"entidade", "txtNum"}},
                  {},
                  usual,
                  {field("txtIndAss", Whole, "nind"), option("optassistente_0"), option("optassistente_1"),
                   field("cmbEC", Code, "estadocivil"), field("chkFalPai", Flag, "falecidopai"),
                   field("chkFalMae", Flag, "falecidomae"), field("txtObs", Text, "obs"),
                   field("cmbPar1", Code, marriage ? "parentnoivo" : "parentbapt")},
                  {"cmdIndAss", "cmdIndAss", "cmdIndAss"}};
    if (marriage) window.fields << field("cmbPar2", Code, "parentnoiva");
    return window;
}

// Kept: crossed, so that the priests of a baptism are columns of the family of that number.
Window priests(const QString& name, const QStringList& way, bool marriage)
{
    using enum Kind;
    return {name,
            "frmIntervenientes",
            way,
            marriage ? "frmFam" : "frmInd",
            {},
            marriage ? "individuo" : "familia",
            {{marriage ? "nind" : "nfamilia", "txtNum"}},
            {},
            {{"cmdE", "cmdE", {}}},
            {field("txtIndP1", Whole, {}, NotStored), field("cmbFuncP1", Code, {}, NotStored),
             field("txtIndP2", Whole, {}, NotStored), field("cmbFuncP2", Code, {}, NotStored)},
            {"cmdIndP1", "cmdIndP2"}};
}

Window record(const QString& name, const QStringList& way, const QString& button, const QString& column)
{
    const bool marriage = column == "rpcas";
    const QString card = marriage ? "frmFam" : "frmInd";
    Window window{name,
                  "frmRP",
                  from(way, "click " + card + '.' + button),
                  card,
                  {},
                  marriage ? "familia" : "individuo",
                  {{marriage ? "nfamilia" : "nind", card + (marriage ? ".txtNFam" : ".txtNind")}},
                  {},
                  {{"txtLoc", "cmdG_0", "cmdG_1"}},
                  {field("txtLoc", Kind::Path, column, KeptWhenBlank)}};
    window.silentWhenBlank = true;
    return window;
}

Window editor(const QString& form, const QStringList& way, const QString& grid, const QString& table,
              const QString& code, const QString& name, int codeIs)
{
    using enum Kind;
    return {form.mid(3).toLower(),
            form,
            way,
            {},
            grid,
            table,
            {},
            {{code, "txtCod"}},
            usual,
            {field("txtCod", Text, code, codeIs), field("txtNome", Name, name),
             field("txtObs", Text, "obs", KeptWhenBlank)}};
}

Window zones()
{
    Window window =
        editor("frmZona", {"menu mnuLocPar", "choose frmLocalizacao.cmbPais 0", "click frmLocalizacao.cmdZ"}, "dtgZona",
               "zonapais", "codzona", "nomezona", NotAsTyped);
    window.fields << field("cmbTipo", Kind::Code, "tipo");
    return window;
}

QStringList wayToLocalities()
{
    return {"menu mnuLocPar", "click frmLocalizacao.cmdLug"};
}

QStringList wayToSites()
{
    return {"menu mnuLocPar", "choose frmLocalizacao.cmbLugar 1", "click frmLocalizacao.cmdSit"};
}

Window catalogue()
{
    using enum Kind;
    return {"catalogo",
            "frmProfissao",
            {"menu mnuCProf"},
            {},
            "lstProf",
            "profissao",
            {},
            {{"codprof", "txtCod"}},
            usual,
            {field("txtDes", Name, "profissao"), field("txtObs", Text, "obs")}};
}

Window codes()
{
    using enum Kind;
    return {"codigos",
            "frmInfo",
            {"menu mnuCInfo"},
            {},
            "dtgInfo",
            "infocomplementar",
            {},
            {{"codigo", "txtCod"}},
            usual,
            {field("cmbCat", Word, {}, NotStored), field("txtCod", Whole, "codigo", NotAsTyped),
             field("txtNome", Name, "descricao")}};
}

Window search(const QString& name, const QString& form, const QStringList& way, const Edit& edit,
              const QStringList& texts, const QStringList& lists)
{
    Window window{name, form, way, {}, {}, {}, {}, {}, {edit}, {}};
    window.edits[0].searches = true;
    for (const QString& control : texts)
        window.fields << field(control,
                               control.contains("Nind") || control.contains("NFam") ? Kind::Whole
                               : control.startsWith("msk")                          ? Kind::Date
                                                                                    : Kind::Text,
                               {}, NotStored);
    for (const QString& control : lists)
        window.fields << field(
            control, control.startsWith("opt") || control.startsWith("chk") ? Kind::Option : Kind::Code, {}, NotStored);
    return window;
}

QList<Window> made()
{
    const QStringList baptism = from(person, "click frmInd.cmdInterv"), marriage = from(family, "click frmFam.cmdInt");
    QList<Window> all{
        individual(),
        couple(),
        professions(),
        residences("residencias", person, "frmInd"),
        residences("residencias da familia", family, "frmFam"),
        signatures(),
        legacies(),
        suffrages(),
        passports(),
        description(),
        funeral(),
        assistants("assistentes do baptismo", baptism, false),
        assistants("assistentes do casamento", marriage, true),
        priests("padres do baptismo", baptism, false),
        priests("padres do casamento", marriage, true),
        record("registo de baptismo", person, "cmdRP_0", "rpbapt"),
        record("registo de obito", person, "cmdRP_1", "rpobi"),
        record("registo de casamento", family, "cmdRP", "rpcas"),
        editor("frmPais", {"open frmPais"}, "dtPais", "pais", "codpais", "nomepais", NotAsTyped),
        editor("frmDistritos", {"open frmDistritos"}, "dtDist", "distrito", "coddistrito", "nomedistrito", NotAsTyped),
        editor("frmConcelhos", {"open frmConcelhos"}, "dtgConc", "concelho", "codconcelho", "nomeconcelho", NotAsTyped),
        editor("frmFreguesias", {"open frmConcelhos", "open frmFreguesias"}, "dtFreg", "paroquia", "codparoquia",
               "nomeparoquia", NotAsTyped),
        zones(),
        editor("frmLugares", wayToLocalities(), "dtgLug", "lugar", "codlugar", "nomelugar", None),
        editor("frmSitios", wayToSites(), "dtSit", "sitio", "codsitio", "nomesitio", None),
        catalogue(),
        codes()};
    const Edit onCard{"cmdLoc", "cmdLoc", "cmdIns"};
    all << search("procura de individuos", "frmInd", person, onCard, {"txtNind", "txtNome", "txtObs"},
                  {"cmbTipoInd", "optSexo_0", "optSexo_1", "cmbLoc", "cmbLocObito", "cmbFiliacao"})
        << search("procura de familias", "frmFam", family, onCard, {"txtNFam", "txtPnome", "txtSnome"},
                  {"cmbSit", "cmbTipoFam", "cmbLoc"})
        << search("datas de individuos", "frmDatas",
                  {"menu mnuEditInd", "click frmInd.cmdLoc", "click frmInd.cmdLocDat"}, {"optTData_1", "cmdOk", "cmdC"},
                  {"mskDt_0", "mskDt_1", "mskDt_2"},
                  {"optData_0", "optData_1", "optData_2", "optData_3", "optTData_0", "optTData_1"})
        << search("datas de familias", "frmDatas", {"menu mnuEditFam", "click frmFam.cmdLoc", "click frmFam.cmdLocDat"},
                  {"optTData_1", "cmdOk", "cmdC"}, {"mskDt_0", "mskDt_1", "mskDt_2"}, {"optData_1", "optTData_0"})
        << search("procura de locais", "frmPesq", {"menu mnuLocPar", "click frmLocalizacao.cmdLoc"},
                  {"txtSeq", "cmdLoc", {}}, {"txtSeq"}, {"chkLoc_0", "chkLoc_1", "chkLoc_5"})
        << search("transcrever acto", "frmActo", {"menu mnuActo"}, {"txtData", "cmdFechar", {}},
                  {"txtData",       "txtLivro",    "txtFolio",      "txtNumero",  "txtLocal",    "txtObs",
                   "txtCelebrante", "txtNome(0)",  "txtNome(1)",    "txtNome(2)", "txtResid(2)", "txtNome(3)",
                   "txtResid(3)",   "txtEC",       "txtIdade",      "txtNatural", "txtProf",     "txtTitulo",
                   "txtAlcunha",    "txtFiliacao", "txtParentesco", "txtNotas"},
                  {"cmbActo"})
        << search("actos transcritos", "frmActos", {"menu mnuActos"}, {"txtNome", "cmdFechar", {}}, {"txtNome"},
                  {"cmbTipo", "cmbLivro"})
        << search("transcricoes", "frmTranscricoes", {"menu mnuTranscricoes"}, {"txtRazao", "cmdFechar", {}},
                  {"txtRazao"}, {"optLigar_0", "optLigar_1", "chkLocais", "chkProf"})
        << search("contradicoes", "frmContradicoes", {"menu mnuContradicoes"}, {"txtTexto", "cmdFechar", {}},
                  {"txtTexto", "txtRazao"}, {"cmbMostrar", "cmbGravidade"})
        << search("ligacoes", "frmLigacoes", {"menu mnuLigacoes"}, {"txtRazao", "cmdFechar", {}}, {"txtRazao"},
                  {"cmbTipo"})
        << search("juntar", "frmJuntar", {"menu mnuJuntar"}, {"txtFica", "cmdFechar", {}},
                  {"txtFica", "txtOutro", "txtRazao"}, {"cmbQue"})
        << search("indicadores", "frmIndicadores", {"menu mnuIndicadores"}, {"txtNumero", "cmdFechar", {}},
                  {"txtNumero"}, {"cmbRegisto"})
        << search("exportar", "frmExportar", {"menu mnuExportar"}, {"txtLimite", "cmdFechar", {}},
                  {"txtLimite", "txtAlvo"}, {"cmbDatas", "chkAssoc"})
        << search("importar", "frmImportar", {"menu mnuImportar"}, {"txtOrigem", "cmdFechar", {}},
                  {"txtOrigem", "txtAlvo"}, {})
        << search("mensagem", "frmMail", {"menu mnuAcerca", "click frmAcerca.Command1"}, {"txtTo", "cmdSend", {}},
                  {"txtTo", "txtBody"}, {"cmbAssunto"});
    return all;
}

} // namespace

const QList<Inputs::Window>& Inputs::windows()
{
    static const QList<Window> all = made();
    return all;
}

// The words of the registers and what they mean.
#include "study/acts/catalogue.h"

#include "study/names/fold.h"

#include <QRegularExpression>

#include <algorithm>

namespace study {

namespace {

struct Kinship
{
    const char* relation; // of a man; the woman's beside it
    const char* ofAWoman;
    const char* throughTheFather; // what he is to the child; "": uncertain
    const char* hers;
    const char* throughTheMother;
    const char* hersThroughTheMother;
};

// clang-format off
const Kinship kinships[] = {
    {"pai",   "mae",   "Avô paterno", "Avó paterna", "Avô materno", "Avó materna"},
    {"avo",   "avo",   "Bisavô",      "Bisavó",      "Bisavô",      "Bisavó"},
    {"irmao", "irma",  "Tio paterno", "Tia paterna", "Tio materno", "Tia materna"},
    {"tio",   "tia",   "Tio-avô",     "Tia-avó",     "Tio-avô",     "Tia-avó"},
};
// clang-format on

bool contains(const QString& text, const QString& words)
{
    return (' ' + text + ' ').contains(' ' + words + ' ');
}

struct Sacraments
{
    bool confession, viaticum, unction;
    const char* description;
};

// clang-format off
const Sacraments sacraments[] = {
    {true,  true,  true,  "Todos (confissão, viático e extrema-unção)"},
    {true,  false, false, "Confissão"},
    {true,  true,  false, "Confissão e viático"},
    {true,  false, true,  "Confissão e extrema-unção"},
    {false, true,  false, "Viático"},
    {false, true,  true,  "Viático e extrema-unção"},
    {false, false, true,  "Extrema-unção"},
};
// clang-format on

} // namespace

QString plainWords(const QString& text)
{
    return fold::plain(QString(text).replace(u'-', u' ')).simplified();
}

bool isDenied(const QString& text)
{
    static const QStringList first{"n", "nao", "nem", "sem", "0"}, anywhere{"nenhum", "nenhuma", "nenhuns", "nenhumas"};
    const QStringList words = plainWords(text).split(' ');
    return first.contains(words.first()) ||
           std::ranges::any_of(anywhere, [&](const QString& word) { return words.contains(word); });
}

const QList<CodeWord>& codeWords()
{
    // clang-format off
    static const QList<CodeWord> words{
        {"EstCi", "solteiro", "Solteiro"}, {"EstCi", "solteira", "Solteiro"}, {"EstCi", "s", "Solteiro"},
        {"EstCi", "donzela", "Solteiro"},
        {"EstCi", "casado", "Casado"}, {"EstCi", "casada", "Casado"}, {"EstCi", "c", "Casado"},
        {"EstCi", "viuvo", "Viúvo"}, {"EstCi", "viuva", "Viúvo"}, {"EstCi", "v", "Viúvo"},
        {"EstCi", "separado", "Separado"}, {"EstCi", "separada", "Separado"},
        {"EstCi", "divorciado", "Divorciado"}, {"EstCi", "divorciada", "Divorciado"},
        {"EstCi", "clerigo", "Clérigo ou religioso"}, {"EstCi", "padre", "Clérigo ou religioso"},
        {"EstCi", "religioso", "Clérigo ou religioso"}, {"EstCi", "religiosa", "Clérigo ou religioso"},
        {"EstCi", "freira", "Clérigo ou religioso"}, {"EstCi", "frade", "Clérigo ou religioso"},
        {"EstCi", "amancebado", "Em união não matrimonial"}, {"EstCi", "amancebada", "Em união não matrimonial"},

        {"FunPa", "paroco", "Pároco"}, {"FunPa", "abade", "Abade"}, {"FunPa", "reitor", "Reitor"},
        {"FunPa", "vigario", "Vigário"}, {"FunPa", "prior", "Prior"}, {"FunPa", "cura", "Cura"},
        {"FunPa", "padre cura", "Cura"}, {"FunPa", "coadjutor", "Coadjutor"}, {"FunPa", "encomendado", "Encomendado"},
        {"FunPa", "cura encomendado", "Encomendado"}, {"FunPa", "paroco encomendado", "Encomendado"},
        {"FunPa", "vigario encomendado", "Encomendado"}, {"FunPa", "capelao", "Capelão"},
        {"FunPa", "arcipreste", "Arcipreste"}, {"FunPa", "conego", "Cónego"}, {"FunPa", "bispo", "Bispo"},
        {"FunPa", "arcebispo", "Arcebispo"}, {"FunPa", "frei", "Religioso de ordem regular"},
        {"FunPa", "licenca do paroco", "Padre com licença do pároco"},
        {"FunPa", "licenca do abade", "Padre com licença do pároco"},
        {"FunPa", "licenca do reitor", "Padre com licença do pároco"},
        {"FunPa", "licenca do vigario", "Padre com licença do pároco"},
        {"FunPa", "missionario", "Missionário"}, {"FunPa", "tesoureiro", "Tesoureiro da igreja"},
        {"FunPa", "diacono", "Diácono"},

        {"Filia", "legitimo", "Legítima"}, {"Filia", "legitima", "Legítima"},
        {"Filia", "natural", "Natural (pais solteiros)"},
        {"Filia", "exposto", "Exposto"}, {"Filia", "exposta", "Exposto"},
        {"Filia", "enjeitado", "Exposto"}, {"Filia", "enjeitada", "Exposto"},
        {"Filia", "engeitado", "Exposto"}, {"Filia", "engeitada", "Exposto"},
        {"Filia", "adulterino", "Adulterina"}, {"Filia", "adulterina", "Adulterina"},
        {"Filia", "sacrilego", "Sacrílega"}, {"Filia", "sacrilega", "Sacrílega"},
        {"Filia", "incestuoso", "Incestuosa"}, {"Filia", "incestuosa", "Incestuosa"},
        {"Filia", "espurio", "Espúria"}, {"Filia", "espuria", "Espúria"},
        {"Filia", "perfilhado", "Perfilhada"}, {"Filia", "perfilhada", "Perfilhada"},
        {"Filia", "postumo", "Legítima, póstuma"}, {"Filia", "postuma", "Legítima, póstuma"},
        {"Filia", "legitimo postumo", "Legítima, póstuma"}, {"Filia", "legitima postuma", "Legítima, póstuma"},
        {"Filia", "pai incognito", "Ilegítima, de pai incógnito"},
        {"Filia", "mae incognita", "Ilegítima, de mãe incógnita"},
        {"Filia", "pais incognitos", "Ilegítima, de pais incógnitos"},

        {"ClaPa", "inocente", "Inocente (menor de sete anos)"}, {"ClaPa", "anjinho", "Inocente (menor de sete anos)"},
        {"ClaPa", "menor sem confissao", "Menor, sem confissão"},
        {"ClaPa", "menor de confissao", "Menor de confissão"},
        {"ClaPa", "maior", "Maior, de confissão e comunhão"},
        {"ClaPa", "maior de confissao e comunhao", "Maior, de confissão e comunhão"},
        {"ClaPa", "cabeca de casal", "Cabeça de casal"}, {"ClaPa", "ausente", "Paroquiano ausente"},
        {"ClaPa", "forasteiro", "Forasteiro (de outra paróquia)"},
        {"ClaPa", "forasteira", "Forasteiro (de outra paróquia)"},
        {"ClaPa", "pobre", "Pobre"}, {"ClaPa", "clerigo", "Clérigo ou religioso"},
        {"ClaPa", "escravo", "Escravo"}, {"ClaPa", "escrava", "Escravo"},

        {"TipOf", "corpo presente", "De corpo presente"}, {"TipOf", "setimo dia", "Do sétimo dia"},
        {"TipOf", "trigesimo dia", "Do trigésimo dia"}, {"TipOf", "aniversario", "De aniversário"},
        {"TipOf", "3 licoes", "De três lições"}, {"TipOf", "tres licoes", "De três lições"},
        {"TipOf", "6 licoes", "De seis lições"}, {"TipOf", "seis licoes", "De seis lições"},
        {"TipOf", "9 licoes", "De nove lições"}, {"TipOf", "nove licoes", "De nove lições"},
        {"TipOf", "cantado", "Cantado"}, {"TipOf", "cantados", "Cantado"},
        {"TipOf", "rezado", "Rezado"}, {"TipOf", "rezados", "Rezado"},
        {"TipOf", "confraria", "Da confraria"}, {"TipOf", "responso", "Ladainha ou responso"},
        {"TipOf", "responsos", "Ladainha ou responso"}, {"TipOf", "ladainha", "Ladainha ou responso"},

        {"TipMi", "rezada", "Rezada"}, {"TipMi", "rezadas", "Rezada"},
        {"TipMi", "cantada", "Cantada"}, {"TipMi", "cantadas", "Cantada"},
        {"TipMi", "corpo presente", "De corpo presente"}, {"TipMi", "setimo dia", "Do sétimo dia"},
        {"TipMi", "trigesimo dia", "Do trigésimo dia"}, {"TipMi", "aniversario", "De aniversário"},
        {"TipMi", "trintario", "Trintário"}, {"TipMi", "trintario de sao gregorio", "Trintário de São Gregório"},
        {"TipMi", "trintario de s gregorio", "Trintário de São Gregório"},
        {"TipMi", "altar privilegiado", "Em altar privilegiado"}, {"TipMi", "confraria", "Da confraria"},
        {"TipMi", "perpetua", "Perpétua (capela)"}, {"TipMi", "alma de seus pais", "Por alma dos pais"},
        {"TipMi", "alma dos pais", "Por alma dos pais"}, {"TipMi", "alma do marido", "Por alma do cônjuge"},
        {"TipMi", "alma de seu marido", "Por alma do cônjuge"}, {"TipMi", "alma da mulher", "Por alma do cônjuge"},
        {"TipMi", "alma de sua mulher", "Por alma do cônjuge"},
        {"TipMi", "almas do purgatorio", "Pelas almas do Purgatório"}, {"TipMi", "natal", "De Natal"},

        {"TipEs", "presos", "Aos presos"}, {"TipEs", "misericordia", "À Misericórdia"},
        {"TipEs", "santissimo", "À confraria do Santíssimo Sacramento"},
        {"TipEs", "confraria das almas", "À confraria das Almas"}, {"TipEs", "fabrica", "À fábrica da igreja"},
        {"TipEs", "convento", "A convento ou ordem"}, {"TipEs", "mosteiro", "A convento ou ordem"},
        {"TipEs", "hospital", "A hospital ou gafaria"}, {"TipEs", "gafaria", "A hospital ou gafaria"},
        {"TipEs", "cativos", "À redenção dos cativos"}, {"TipEs", "jerusalem", "Aos Lugares Santos de Jerusalém"},
        {"TipEs", "dinheiro aos pobres", "Aos pobres, em dinheiro"}, {"TipEs", "pao aos pobres", "Aos pobres, em pão"},
        {"TipEs", "pobres em dinheiro", "Aos pobres, em dinheiro"}, {"TipEs", "pobres em pao", "Aos pobres, em pão"},
        {"TipEs", "pao vinho e cera", "Oferta de pão, vinho e cera"},
    };
    // clang-format on
    return words;
}

static constexpr auto withLicence = "Padre com licença do pároco";

// What stands between the words that mean something together.
static QString joined(const QString& category, QString plain)
{
    static const QRegularExpression licence(R"(\blicenca d[aeo] (?:\S+ ){0,4}?(paroco|abade|reitor|vigario)\b)");
    if (category == "FunPa") plain.replace(licence, R"(licenca do \1)");
    if (category == "Filia") plain.replace("nao sabid", "incognit");
    return plain;
}

std::optional<QString> meaningOf(const QString& category, const QString& text)
{
    const QString plain = joined(category, plainWords(text));
    if (contains(plain, "nao")) return {};
    QList<const CodeWord*> found;
    for (const CodeWord& word : codeWords())
        if (word.category == category && contains(plain, word.words)) found << &word;
    std::optional<QString> meant;
    for (const CodeWord* word : found) {
        const bool withinAnother = std::ranges::any_of(
            found, [&](const CodeWord* other) { return other != word && contains(other->words, word->words); });
        if (withinAnother) continue;
        if (meant && *meant != word->description) return {};
        meant = word->description;
    }
    if (category == "FunPa" && contains(plain, "licenca") && meant != withLicence) return {};
    return meant;
}

namespace {

bool hasAny(const QString& plain, std::initializer_list<const char*> words)
{
    return std::ranges::any_of(words, [&](const char* word) { return contains(plain, word); });
}

// Why somebody got none.
std::optional<QString> reasonForNone(const QString& plain)
{
    if (hasAny(plain, {"repentina", "repentinamente", "repente", "subita", "subitamente"}))
        return "Nenhum, por morte repentina";
    if (hasAny(plain, {"falta de juizo", "sem juizo", "demente"})) return "Nenhum, por falta de juízo";
    if (hasAny(plain, {"menor", "inocente"})) return "Nenhum, por ser menor";
    if (hasAny(plain, {"fora da paroquia", "fora da freguesia"})) return "Nenhum, por morte fora da paróquia";
    if (hasAny(plain, {"nao foi chamado", "nao ser chamado", "nao me chamaram"}))
        return "Nenhum, por não ser chamado o pároco";
    return {};
}

} // namespace

// A reason beside a sacrament is told of the others: which, isn't certain.
std::optional<QString> sacramentsMeant(const QString& text)
{
    const QString plain = plainWords(text);
    const bool all = hasAny(plain, {"todos"});
    const bool absolution = hasAny(plain, {"absolvicao", "absolvido", "absolvida"});
    const Sacraments told{.confession = hasAny(plain, {"confissao", "confessado", "confessada", "penitencia"}),
                          .viaticum =
                              hasAny(plain, {"viatico", "comunhao", "eucaristia", "sacramentado", "sacramentada"}),
                          .unction = hasAny(plain, {"uncao", "ungido", "ungida"}),
                          .description = ""};
    const bool received = all || absolution || told.confession || told.viaticum || told.unction;
    if (const auto none = reasonForNone(plain)) return received ? std::nullopt : none;
    if (QStringList{"nao", "n", "nenhum", "sem sacramentos", "nenhuns"}.contains(plain))
        return "Nenhum, sem motivo declarado";
    if (hasAny(plain, {"nao", "sem", "nem", "menos", "excepto", "exceto", "salvo"})) return {};
    if (all || plain == "sim" || plain == "s") return sacraments[0].description;
    if (absolution)
        return told.confession || told.viaticum ? std::optional<QString>()
               : told.unction                   ? "Absolvição sob condição e extrema-unção"
                                                : "Absolvição sob condição";
    for (const Sacraments& known : sacraments)
        if (known.confession == told.confession && known.viaticum == told.viaticum && known.unction == told.unction)
            return known.description;
    return {};
}

std::optional<QString> kinshipThrough(Role parent, const QString& relation, Sex assistant)
{
    const QString plain = plainWords(relation).section(' ', 0, 0);
    if (assistant == Sex::Unknown) return {};
    for (const Kinship& kinship : kinships) {
        if (plain != kinship.relation && plain != kinship.ofAWoman) continue;
        const bool woman = assistant == Sex::Female;
        if (parent == Role::Father) return woman ? kinship.hers : kinship.throughTheFather;
        if (parent == Role::Mother) return woman ? kinship.hersThroughTheMother : kinship.throughTheMother;
    }
    return {};
}

// "irmã gémea" is "Irmã". Without accents the two grandparents are one word, and the sex tells which.
std::optional<QString> kinshipTold(const QString& relation, Sex assistant)
{
    QString plain = plainWords(relation);
    if (plain == "irmao gemeo") plain = "irmao";
    if (plain == "irma gemea") plain = "irma";
    if (plain.isEmpty()) return {};
    if (plain.endsWith("avo") && !plain.contains(' ')) {
        if (assistant == Sex::Unknown) return {};
        return plain.chopped(1) + QString(assistant == Sex::Female ? "ó" : "ô");
    }
    return plain;
}

} // namespace study

#include "study/indicators/causes.h"

#include "study/names/fold.h"

#include <algorithm>

namespace study::indicators {

namespace {

// A cause, and the words or, with a "*" behind them, the beginnings of words that tell it, without accents.
struct Cause
{
    const char* id;
    const char* name;
    std::array<const char*, 7> words;
};
constexpr std::array<Cause, causesOfTheList> list = {
    {{"bexigas", "Bexigas (varíola)", {"bexig*", "variol*"}},
     {"sarampo", "Sarampo", {"saramp*"}},
     {"garrotilho", "Garrotilho (difteria)", {"garrot*", "difter*", "diphter*", "crup*", "croup*"}},
     {"colera", "Cólera", {"colera*", "cholera*"}},
     {"colicas", "Cólicas e disenteria", {"colic*", "disenter*", "dysenter*", "camaras"}},
     {"febres", "Febres, malinas, sezões", {"febr*", "malin*", "sez*", "terca*"}},
     {"tisica", "Tísica", {"tisic*", "tysic*", "phtisic*", "tubercul*", "hetic*"}},
     {"hidropisia", "Hidropisia", {"hidrop*", "hydrop*"}},
     // Not "parte", "partida", "particular".
     {"parto", "Parto", {"parto", "partos", "sobreparto", "parturi*", "puerper*", "parir"}},
     {"acidente", "Acidente ou afogamento", {"aciden*", "desastr*", "qued*", "afoga*", "raio"}},
     {"apoplexia", "Apoplexia (estupor)", {"apople*", "estupor*", "parlesi*", "paralis*"}},
     {"velhice", "Velhice", {"velh*", "decrepit*", "senil*"}},
     {"repente", "De repente", {"repent*", "subit*"}},
     {"outra", "Outra", {}}}};

const Cause& at(int cause)
{
    return list.at(static_cast<std::size_t>(cause));
}

bool isTold(const QString& word, const char* told)
{
    const QLatin1String text(told);
    return text.endsWith('*') ? word.startsWith(text.chopped(1)) : word == text;
}

bool tells(const QStringList& words, const Cause& cause)
{
    return std::any_of(words.begin(), words.end(), [&cause](const QString& word) {
        return std::any_of(cause.words.begin(), cause.words.end(),
                           [&word](const char* told) { return told && isTold(word, told); });
    });
}

} // namespace

QString nameOfCause(int cause)
{
    return at(cause).name;
}

QString idOfCause(int cause)
{
    return at(cause).id;
}

int causeById(const QString& id)
{
    const auto found = std::find_if(list.begin(), list.end(), [&id](const Cause& cause) { return id == cause.id; });
    return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

int causeOf(const QString& told, const Settings& settings)
{
    const QStringList words = fold::plain(told).split(u' ', Qt::SkipEmptyParts);
    for (auto own = settings.causes.cbegin(); own != settings.causes.cend(); ++own) {
        const QString beginning = fold::plain(own.key()).trimmed();
        const bool isOne = !beginning.isEmpty() && std::any_of(words.begin(), words.end(), [&](const QString& word) {
            return word.startsWith(beginning);
        });
        if (const int cause = causeById(own.value()); isOne && cause >= 0) return cause;
    }
    const auto found =
        std::find_if(list.begin(), list.end() - 1, [&words](const Cause& cause) { return tells(words, cause); });
    return static_cast<int>(found - list.begin());
}

} // namespace study::indicators

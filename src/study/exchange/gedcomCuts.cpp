#include "study/exchange/gedcomCuts.h"

namespace study::exchange {

namespace {

constexpr std::size_t fewestCuts = 20;
constexpr qsizetype nearlyFull = 2; // letters that a line may lack where no word is kept whole

bool followsInUtf8(QChar letter)
{
    return letter.unicode() >= 0x80 && letter.unicode() < 0xC0;
}

} // namespace

GedcomCuts::Length GedcomCuts::lengthOf(QStringView text)
{
    return {text.size(), text.size() - std::count_if(text.begin(), text.end(), followsInUtf8)};
}

void GedcomCuts::take(const GedcomStructureLine& line)
{
    if (line.tag == "CONC" && isText_) {
        if (firstLine_ == 0) firstLine_ = line.number;
        if (before_.isEmpty() || line.value.isEmpty() || before_.back() == u' ' || line.value.front() == u' ')
            keepBlanks_ = true;
        const qsizetype word = line.value.indexOf(u' ');
        cuts_.push_back(
            {lengthOf(before_), lengthOf(QStringView(line.value).first(word < 0 ? line.value.size() : word))});
    }
    isText_ = line.level >= 0;
    before_ = line.value;
}

// Most lines are as long as the longest one, but for what a cut beside a blank takes.
bool GedcomCuts::areOfFullLines(qsizetype Length::*unit) const
{
    qsizetype longest = 0;
    for (const Cut& cut : cuts_)
        longest = qMax(longest, cut.before.*unit);
    std::size_t full = 0;
    bool isRoomForAWord = false;
    for (const Cut& cut : cuts_) {
        if (cut.before.*unit + nearlyFull >= longest) ++full;
        if (cut.before.*unit + 1 + cut.nextWord.*unit <= longest) isRoomForAWord = true;
    }
    return isRoomForAWord || 4 * full >= 3 * cuts_.size();
}

bool GedcomCuts::loseBlanks() const
{
    return !keepBlanks_ && cuts_.size() >= fewestCuts && !areOfFullLines(&Length::bytes) &&
           !areOfFullLines(&Length::letters);
}

} // namespace study::exchange

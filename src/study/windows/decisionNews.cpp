#include "study/windows/decisionNews.h"

namespace study {

DecisionNews& DecisionNews::all()
{
    static DecisionNews news;
    return news;
}

} // namespace study

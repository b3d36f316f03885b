#include "platform/forms/stilltext.h"

#include <QLabel>

#include <algorithm>

// The toolkit leaves the layout alone where a widget has one size only.
void setStillText(QLabel* label, const QString& text)
{
    constexpr int widestKept = 250; // pixels
    if (text == label->text()) return;
    const QMargins around = label->contentsMargins();
    const int across = around.left() + around.right() + 2 * label->margin();
    const int down = around.top() + around.bottom() + 2 * label->margin();
    const int needed = label->fontMetrics().size(Qt::TextSingleLine, text).width() + across;
    label->setFixedSize(std::max(std::min(label->minimumWidth(), widestKept), needed),
                        label->fontMetrics().lineSpacing() + down);
    label->setText(text);
}

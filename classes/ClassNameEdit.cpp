#include "classes/ClassNameEdit.h"

#include "base/UserPrompts.h"
#include "recordings/ClassRecord.h"
#include "recordings/writeBextDescription.h"

#include <QToolTip>
#include <QValidator>

namespace {

/// Four names of this length fit into one record, with what stands between them.
constexpr int longestName = (bextDescriptionSize - 16) / ClassRecord::slotCount;

class NameValidator : public QValidator
{
public:
    using QValidator::QValidator;

    State validate(QString& input, int& /*position*/) const override
    {
        // "a +" is on the way to "a +b".
        const bool canBecomeName = input.isEmpty() || ClassRecord::acceptsClassName(input + QLatin1Char('x'));
        return canBecomeName ? Acceptable : Invalid;
    }
};

} // namespace

ClassNameEdit::ClassNameEdit(QWidget* parent) : QLineEdit(parent)
{
    setMaxLength(longestName);
    setValidator(new NameValidator(this));
    connect(this, &QLineEdit::inputRejected, this, &ClassNameEdit::explain);
}

bool ClassNameEdit::confirm(UserPrompts& prompts)
{
    if (ClassRecord::acceptsClassName(name()))
        return true;
    setFocus();
    if (name().isEmpty())
        prompts.warn(QStringLiteral("Warning"), QStringLiteral("The new class name may not be empty."));
    else
        explain(); // what is still on the way to a name: it ends in " +"
    return false;
}

void ClassNameEdit::explain()
{
    QToolTip::showText(mapToGlobal(QPoint(0, height() / 2)),
                       QStringLiteral("A class name takes up to %1 letters, digits and signs of the ASCII\n"
                                      "character set, but no \"|\", no \" + \" and no \", \".")
                           .arg(longestName),
                       this);
}

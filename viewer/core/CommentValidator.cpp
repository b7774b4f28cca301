#include "viewer/core/CommentValidator.h"

#include "recordings/writeBextDescription.h"

#include <algorithm>

namespace {

int spaceBeside(ClassRecord record)
{
    record.comment.clear();
    return std::max(0, bextDescriptionSize - record.text().toUtf8().size());
}

int foreignCharacters(const QString& text)
{
    return static_cast<int>(std::count_if(text.cbegin(), text.cend(), [](QChar character) {
        return !ClassRecord::acceptsComment(QString(character));
    }));
}

} // namespace

CommentValidator::CommentValidator(const ClassRecord& record, QObject* parent)
    : QValidator(parent), m_present(record.comment), m_limit(spaceBeside(record))
{}

QValidator::State CommentValidator::validate(QString& text, int& /*position*/) const
{
    if (text.size() <= m_limit && ClassRecord::acceptsComment(text))
        return Acceptable;
    const bool noWorse = text.size() <= std::max(m_limit, m_present.size()) &&
                         foreignCharacters(text) <= foreignCharacters(m_present);
    return noWorse ? Intermediate : Invalid;
}

QString CommentValidator::rule() const
{
    return tr("A comment has up to %1 characters here: letters without accents, digits, blanks and signs, "
              "but no \"|\".")
        .arg(m_limit);
}

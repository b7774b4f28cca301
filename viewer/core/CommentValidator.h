#ifndef SONAVIA_VIEWER_CORE_COMMENTVALIDATOR_H
#define SONAVIA_VIEWER_CORE_COMMENTVALIDATOR_H

#include "recordings/ClassRecord.h"

#include <QValidator>

/// Lets only such comments be typed as a class record can hold: printable ASCII without "|", up to what is
/// left of the record's space in the file. A comment that some other program wrote otherwise can be shortened
/// until it fits, but not made worse.
class CommentValidator : public QValidator
{
    Q_OBJECT

public:
    /// For the comment of `record` as it is now.
    explicit CommentValidator(const ClassRecord& record, QObject* parent = nullptr);

    /// Acceptable, or Intermediate for what was there before.
    State validate(QString& text, int& position) const override;

    /// How many characters the comment may have, 0 when the classes alone fill the record.
    int limit() const { return m_limit; }
    /// Says to the user what is accepted.
    QString rule() const;

private:
    QString m_present;
    int m_limit;
};

#endif

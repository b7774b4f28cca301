#include "base/UserPrompts.h"

UserPrompts::~UserPrompts() = default;

void UserPrompts::inform(const QString& title, const QString& text)
{
    ask({Icon::Information, title, text});
}

void UserPrompts::warn(const QString& title, const QString& text)
{
    ask({Icon::Warning, title, text});
}

void UserPrompts::fail(const QString& title, const QString& text)
{
    ask({Icon::Critical, title, text});
}

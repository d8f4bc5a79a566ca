#include "launch/mail_command.h"

#include <iterator>

OwnedText MailCommandLine(std::wstring_view attachment, std::wstring_view transport) {
    // The two blanks have always been there.
    constexpr wchar_t format[] = L"-attach \"%s\"  -transport \"%s\"";
    const std::size_t capacity = std::size(format) + attachment.size() + transport.size();
    OwnedText line(new wchar_t[capacity]);
    FormatText({line.get(), capacity}, format, CopyText(attachment).get(), CopyText(transport).get());
    return line;
}

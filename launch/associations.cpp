#include "launch/associations.h"

#include <array>
#include <span>
#include <utility>

#include "common/registry.h"

namespace {

// A class's name as enumerated, and the longest of the keys below it.
using KeyPath = std::array<wchar_t, pathCapacity + 32>;

constexpr wchar_t commandKey[] = L"%s\\Shell\\Open\\Command";
constexpr wchar_t iconKey[] = L"%s\\DefaultIcon";

/// The phone makes the keys it looks for. On a registry that is not the device's own, looking leaves no
/// trace.
bool ReadDefault(HKEY root, const wchar_t* path, std::span<wchar_t> text) {
    const RegistryKey key = ce::OwnsRegistry() ? OpenOrCreateKey(root, path) : OpenKey(root, path);
    return key && ReadText(key.Get(), nullptr, text);
}

bool WriteDefault(HKEY root, const wchar_t* path, const wchar_t* text) {
    const RegistryKey key = OpenOrCreateKey(root, path);
    return key && WriteText(key.Get(), nullptr, text);
}

/// The program that the class `name` names. A class without a command gets an empty one: it has always been
/// so.
std::optional<ProgramRecord> ReadClass(HKEY root, const wchar_t* name, std::wstring_view systemFolder) {
    KeyPath path;
    FormatText(path, commandKey, name);
    wchar_t command[pathCapacity + 1];
    wchar_t description[pathCapacity + 1];
    if (!ReadDefault(root, path.data(), command) || !ReadDefault(root, name, description))
        return std::nullopt;
    return MakeProgramRecord(name, description, command, systemFolder);
}

} // namespace

std::optional<ProgramRecord> MakeProgramRecord(std::wstring_view className, std::wstring_view description,
                                               std::wstring_view command, std::wstring_view systemFolder) {
    const std::optional<OpenCommand> parsed = ParseOpenCommand(command);
    Path program;
    if (!parsed || !LocateProgram(parsed->program, systemFolder, program) ||
        !ce::ProgramExists(program.Text()))
        return std::nullopt;
    return ProgramRecord{CopyText(className), CopyText(description), CopyText(program.View()),
                         CopyText(parsed->parameters)};
}

ProgramList enumeratePrograms(HKEY root, std::wstring_view extension, std::wstring_view systemFolder) {
    ProgramList list;
    wchar_t name[pathCapacity];
    for (DWORD index = 0;; ++index) {
        DWORD length = static_cast<DWORD>(pathCapacity);
        if (RegEnumKeyExW(root, index, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            return list;
        if (name[0] == L'.') {
            if (!EqualNoCase(name, extension))
                continue;
            ReadDefault(root, name, list.extensionClass);
        }
        if (std::optional<ProgramRecord> record = ReadClass(root, name, systemFolder))
            list.records.push_back(std::move(*record));
    }
}

bool writeAssociation(HKEY root, const AssociationTexts& texts) {
    KeyPath command;
    KeyPath icon;
    FormatText(command, commandKey, texts.className.get());
    FormatText(icon, iconKey, texts.className.get());
    return WriteDefault(root, texts.className.get(), texts.description.get()) &&
           WriteDefault(root, command.data(), texts.command.get()) &&
           WriteDefault(root, icon.data(), texts.iconSource.get());
}

bool setExtensionClass(HKEY root, const wchar_t* extension, const wchar_t* className) {
    return WriteDefault(root, extension, className);
}

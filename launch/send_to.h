#pragma once
// "Send To" and "Tools": the list's selected file goes to a program of the user's or of the device's. A
// program that is missing does nothing.

/// The entry of this index among the preferred programs: hands the file over, or shows the folder it names.
void launchPreferred(int index);

/// The messaging program's ways of sending.
enum class MailTransport { Email, Mms };

/// Hands the file to the messaging program. Without a selection it is the file sent last.
void sendByMail(MailTransport transport);

/// Hands the file to the infrared program.
void beamFile();

/// Starts the infrared program alone.
void beamNothing();

/// Starts one of the programs that link the device to a computer.
void StartPcLink();
void StartActiveSync();

// The command line of zolt-batch, read without doing anything.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

namespace zolt::batch {

/// One option of a sub-command.
struct OptionSyntax
{
    QString name;        ///< without the dashes
    QString value;       ///< what the help calls its value; empty for an option without one
    QStringList choices; ///< the values allowed, in any case of letters; empty for any
    QString help;
    bool needed = false; ///< a command line without it is wrong usage
};

/// What the command line of a sub-command may hold besides the options that all of them take.
struct CommandSyntax
{
    QString name; ///< one word, or several with a blank between: "decode", "checksum test"
    QString summary;
    std::vector<OptionSyntax> options;
    bool needsFiles = true; ///< a command line without any is wrong usage
};

/// A command line that is understood.
struct BatchOptions
{
    enum class Action { Run, Help, Version };

    Action action = Action::Run;
    QString command;                 ///< empty for Help and Version asked for before a sub-command
    QHash<QString, QString> options; ///< by name; a choice as its table spells it
    QHash<QString, QStringList> all; ///< every value of each, in the order given
    QStringList files;               ///< files and folders as given

    bool has(const QString& option) const { return options.contains(option); }
    QString value(const QString& option, const QString& otherwise = {}) const
    {
        return options.value(option, otherwise);
    }
    /// Every value of an option that may be given several times.
    QStringList values(const QString& option) const { return all.value(option); }
};

/// A command line that is not understood; the text is for the user.
struct UsageError
{
    QString text;
};

/// The options that every sub-command takes.
const std::vector<OptionSyntax>& commonOptions();

/// Reads the arguments behind the program's name. Options and files may stand in any order; a value stands behind its
/// option or after "="; what follows "--" is files.
/// @throws UsageError
BatchOptions parseOptions(const QStringList& arguments, const std::vector<CommandSyntax>& commands);

/// What --help prints: of all sub-commands, or of the one named.
QString helpText(const std::vector<CommandSyntax>& commands, const QString& command = {});

} // namespace zolt::batch

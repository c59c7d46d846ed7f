#include "app/batch/BatchOptions.h"

#include <algorithm>
#include <optional>

namespace zolt::batch {

using namespace Qt::StringLiterals;

namespace {

const CommandSyntax* find(const std::vector<CommandSyntax>& commands, const QString& name)
{
    const auto found =
        std::find_if(commands.begin(), commands.end(), [&](const auto& each) { return each.name == name; });
    return found == commands.end() ? nullptr : &*found;
}

bool isBelow(const CommandSyntax& command, const QString& words)
{
    return command.name.startsWith(words + u' ');
}

/// Whether the words begin a command's name, which has more of them.
bool begins(const std::vector<CommandSyntax>& commands, const QString& words)
{
    return std::any_of(commands.begin(), commands.end(), [&](const auto& each) { return isBelow(each, words); });
}

QString namesBelow(const std::vector<CommandSyntax>& commands, const QString& words)
{
    QStringList names;
    for (const CommandSyntax& each : commands) {
        if (isBelow(each, words)) names += each.name;
    }
    return names.join(u", "_s);
}

const OptionSyntax* find(const std::vector<OptionSyntax>& options, const QString& name)
{
    const auto found =
        std::find_if(options.begin(), options.end(), [&](const auto& each) { return each.name == name; });
    return found == options.end() ? nullptr : &*found;
}

/// Reads one command line from left to right.
class Reader
{
public:
    Reader(const QStringList& arguments, const std::vector<CommandSyntax>& commands)
        : arguments_(arguments), commands_(commands)
    {
    }

    BatchOptions read()
    {
        for (; at_ < arguments_.size(); ++at_)
            readArgument(arguments_[at_]);
        if (options_.action == BatchOptions::Action::Run) check();
        return options_;
    }

private:
    void readArgument(const QString& argument)
    {
        if (!onlyFiles_ && argument == u"--")
            onlyFiles_ = true;
        else if (!onlyFiles_ && argument.startsWith(u'-') && argument != u"-")
            readOption(argument);
        else if (!command_)
            readCommand(argument);
        else
            options_.files.append(argument);
    }

    /// A word of the command's name, which may have several.
    void readCommand(const QString& word)
    {
        const QString name = options_.command.isEmpty() ? word : options_.command + u' ' + word;
        command_ = find(commands_, name);
        if (!command_ && !begins(commands_, name)) throw UsageError{u"there is no command \"%1\""_s.arg(name)};
        options_.command = name;
    }

    void readOption(const QString& argument)
    {
        const QString name = argument.startsWith(u"--") ? argument.section(u'=', 0, 0).mid(2) : argument;
        const auto inlined = argument.contains(u'=') ? std::optional(argument.section(u'=', 1)) : std::nullopt;
        if (name == u"help" || name == u"-h")
            options_.action = BatchOptions::Action::Help;
        else if (name == u"version")
            options_.action = BatchOptions::Action::Version;
        else
            take(name, valueOf(syntaxOf(name), inlined));
    }

    void take(const QString& name, const QString& value)
    {
        options_.options.insert(name, value);
        options_.all[name] += value;
    }

    const OptionSyntax& syntaxOf(const QString& name) const
    {
        const OptionSyntax* option = find(commonOptions(), name);
        if (!option && command_) option = find(command_->options, name);
        if (option) return *option;
        throw UsageError{command_ ? u"%1 has no option \"%2\""_s.arg(command_->name, arguments_[at_])
                                  : u"the command comes first, then \"%1\""_s.arg(arguments_[at_])};
    }

    QString valueOf(const OptionSyntax& option, const std::optional<QString>& inlined)
    {
        if (option.value.isEmpty()) {
            if (inlined) throw UsageError{u"--%1 takes no value"_s.arg(option.name)};
            return {};
        }
        if (!inlined && at_ + 1 == arguments_.size()) throw UsageError{u"--%1 needs a value"_s.arg(option.name)};
        const QString value = inlined ? *inlined : arguments_[++at_];
        if (option.choices.isEmpty()) return value;
        for (const QString& choice : option.choices) {
            if (choice.compare(value, Qt::CaseInsensitive) == 0) return choice;
        }
        throw UsageError{u"--%1 takes %2, not \"%3\""_s.arg(option.name, option.choices.join(u" or "), value)};
    }

    void check() const
    {
        if (!command_ && !options_.command.isEmpty())
            throw UsageError{u"%1 what? One of %2"_s.arg(options_.command, namesBelow(commands_, options_.command))};
        if (!command_) throw UsageError{u"no command is given"_s};
        if (options_.has(u"jobs"_s)) {
            bool isNumber = false;
            const int jobs = options_.value(u"jobs"_s).toInt(&isNumber);
            if (!isNumber || jobs < 1) throw UsageError{u"--jobs takes a number from 1"_s};
        }
        for (const OptionSyntax& option : command_->options) {
            if (option.needed && !options_.has(option.name))
                throw UsageError{u"%1 needs --%2"_s.arg(command_->name, option.name)};
        }
        if (command_->needsFiles && options_.files.isEmpty())
            throw UsageError{u"%1 needs files or folders"_s.arg(command_->name)};
    }

    const QStringList& arguments_;
    const std::vector<CommandSyntax>& commands_;
    const CommandSyntax* command_ = nullptr;
    BatchOptions options_;
    qsizetype at_ = 0;
    bool onlyFiles_ = false;
};

constexpr int nameWidth = 18; // columns for the longest name of a command and a gap

QString spelled(const OptionSyntax& option)
{
    if (option.value.isEmpty()) return u"--"_s + option.name;
    return u"--%1 %2"_s.arg(option.name, option.choices.isEmpty() ? option.value : option.choices.join(u'|'));
}

/// One line for each option; what they do begins in one column.
QString optionLines(const std::vector<OptionSyntax>& options)
{
    constexpr qsizetype gap = 2;
    qsizetype width = 0;
    for (const OptionSyntax& option : options)
        width = std::max(width, spelled(option).size() + gap);
    QString lines;
    for (const OptionSyntax& option : options)
        lines += u"  %1%2\n"_s.arg(spelled(option).leftJustified(width), option.help);
    return lines;
}

QString commandHelp(const CommandSyntax& command)
{
    std::vector<OptionSyntax> options = command.options;
    options.insert(options.end(), commonOptions().begin(), commonOptions().end());
    return u"Usage: zolt-batch %1 [OPTION...] FILE|FOLDER...\n%2\n\n"_s.arg(command.name, command.summary) +
           optionLines(options);
}

} // namespace

const std::vector<OptionSyntax>& commonOptions()
{
    static const std::vector<OptionSyntax> options{
        {u"jobs"_s, u"N"_s, {}, u"how many tasks run side by side (otherwise the preferences' number)"_s},
        {u"skip-existing"_s, {}, {}, u"leaves sources out whose output exists already"_s},
        {u"json"_s, {}, {}, u"prints each row as one JSON object a line, its report included"_s},
        {u"yes"_s, {}, {}, u"answers every confirmation with Yes; needed for deletions without a terminal"_s},
    };
    return options;
}

BatchOptions parseOptions(const QStringList& arguments, const std::vector<CommandSyntax>& commands)
{
    return Reader(arguments, commands).read();
}

QString helpText(const std::vector<CommandSyntax>& commands, const QString& command)
{
    if (const CommandSyntax* one = find(commands, command)) return commandHelp(*one);
    QString text = u"Usage: zolt-batch COMMAND [OPTION...] FILE|FOLDER...\n"
                   "       zolt-batch [COMMAND] --help | --version\n\nCommands:\n"_s;
    for (const CommandSyntax& each : commands) {
        if (command.isEmpty() || isBelow(each, command))
            text += u"  %1%2\n"_s.arg(each.name.leftJustified(nameWidth), each.summary);
    }
    return text +
           u"\nExit status: 0 all complete, 1 a task failed or an input was left out, 2 nothing to do or wrong usage,\n"
           "130 after Ctrl-C. The first Ctrl-C cancels and lets running tools end; a second one ends them.\n"_s;
}

} // namespace zolt::batch

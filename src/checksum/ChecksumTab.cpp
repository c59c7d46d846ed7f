#include "checksum/ChecksumTab.h"

#include "checksum/ChecksumKinds.h"
#include "checksum/ChecksumList.h"
#include "checksum/ChecksumPlan.h"
#include "checksum/CreateMD5Task.h"
#include "checksum/CreateST5Task.h"
#include "checksum/Fingerprint.h"
#include "checksum/VerifyApeTask.h"
#include "checksum/VerifyFFPTask.h"
#include "checksum/VerifyFlacTask.h"
#include "checksum/VerifyMD5Task.h"
#include "checksum/VerifyST5Task.h"
#include "checksum/VerifyTTATask.h"
#include "checksum/VerifyWavepackTask.h"
#include "engine/ZOLTTaskQueue.h"
#include "shell/Constants.h"

namespace zolt {

using namespace Qt::StringLiterals;
using namespace checksumKinds;

namespace {

using C = Constants;
using Report = std::shared_ptr<ZOLTTaskResults>;
using Task = std::shared_ptr<ZOLTTask>;

/// How files of one kind are tested, in the order in which kinds are compared.
struct Test
{
    QString kind;
    Task (*task)(const ChecksumTab& tab, const QString& file, const Report& report, ZOLTTaskQueue* queue);
};

template <auto Verify>
Task made(const ChecksumTab& tab, const QString& file, const Report& report, ZOLTTaskQueue* queue)
{
    return (tab.*Verify)(file, report, queue);
}

const std::vector<Test>& tests()
{
    static const std::vector<Test> rows{
        {C::FLAC, made<&ChecksumTab::verifyFlacWithResultsWithQueue>},
        {C::APE, made<&ChecksumTab::verifyAPEWithResultsWithQueue>},
        {C::WV, made<&ChecksumTab::verifyWavepackWithResultsWithQueue>},
        {C::TTA, made<&ChecksumTab::verifyTTAWithResultsWithQueue>},
    };
    return rows;
}

/// The task that tests a file; none for a file that nothing tests.
Task testOf(const ChecksumTab& tab, const QString& file, const Report& report, ZOLTTaskQueue* queue)
{
    const auto row =
        std::find_if(tests().begin(), tests().end(), [&](const Test& each) { return each.kind == kindOf(file); });
    return row == tests().end() ? nullptr : row->task(tab, file, report, queue);
}

/// The task that checks a list; none for a file that is no list.
Task verificationOf(const ChecksumTab&, const QString& file, const Report& report, ZOLTTaskQueue* queue)
{
    const QString kind = listKind(file);
    if (kind == C::MD5) return VerifyMD5Task::initWithQueueForFileNameWithResults(queue, file, report);
    if (kind == C::ST5) return VerifyST5Task::initWithQueueForFileNameWithResults(queue, file, report);
    if (kind == C::FFP) return VerifyFFPTask::initWithQueueForFileNameWithResults(queue, file, report);
    return nullptr;
}

} // namespace

ChecksumTab::ChecksumTab()
    : commandOptions(std::make_shared<Matrix>(
          3, 1, QStringList{u"Test audio files"_s, u"Create a checksum file"_s, u"Verify checksum files"_s})),
      createChecksumOptions(std::make_shared<Matrix>(3, 1, QStringList{C::MD5, C::ST5, C::FFP}))
{
    sourceSaveButton->setState(true);
    commandOptions->setAction([this] { changeDisplayOptions(commandOptions.get()); });
}

void ChecksumTab::awakeFromNib()
{
    BaseTab::awakeFromNib();
    displayRelevantOptions();
}

QString ChecksumTab::aboutChoice() const
{
    switch (commandOptions->selectedRow()) {
    case TestFiles:
        return u"The tool of each format decodes the file and tells what it finds damaged."_s;
    case VerifyLists:
        return u"Each file that a list names is held against it; the report tells of every one."_s;
    default:
        return checksumPlan::goodFor(kind());
    }
}

QString ChecksumTab::kind() const
{
    return createChecksumOptions->selectedCell().title;
}

QString ChecksumTab::tool(const QString& name) const
{
    return path::appendingComponent(pathToCommandLineTools(), name);
}

QString ChecksumTab::fingerprint(const QString& path)
{
    return flacFingerprint(path);
}

OptionalText ChecksumTab::listPath(const QString& firstFile, bool sourceSave, const QString& name,
                                   const QString& title) const
{
    if (sourceSave) return path::appendingComponent(path::deletingLastComponent(firstFile), name);
    return openSavePanelTitle(name, title);
}

std::shared_ptr<CreateST5Task> ChecksumTab::createST5WithQueueSourceSave(const QStringList& files, ZOLTTaskQueue* queue,
                                                                         bool sourceSave) const
{
    const OptionalText list = listPath(files.first(), sourceSave, CreateST5Task::defaultName, u"Save st5 as..."_s);
    if (!list) return nullptr;
    QStringList arguments{u"hash"_s, u"-m"_s};
    for (const QString& file : files)
        arguments += path::lastComponent(file);
    const auto task =
        CreateST5Task::initWithFileNameQueueLaunchPathArguments(*list, queue, tool(u"shntool"_s), arguments);
    task->setDirectory(path::deletingLastComponent(files.last())); // kept: files elsewhere are not found
    task->setTitle(u"Create ST5"_s);
    return task;
}

std::shared_ptr<CreateMD5Task> ChecksumTab::createMD5WithQueueSourceSave(const std::shared_ptr<FileList>& files,
                                                                         ZOLTTaskQueue* queue, bool sourceSave) const
{
    const OptionalText list = listPath(files->at(0), sourceSave, CreateMD5Task::defaultName, u"Save md5 as..."_s);
    if (!list) return nullptr;
    const auto task = CreateMD5Task::initWithQueueFilesOutputPath(queue, files, *list);
    task->setTitle(u"Creating MD5"_s); // a waiting row goes on showing the longer name
    return task;
}

std::shared_ptr<VerifyTTATask> ChecksumTab::verifyTTAWithResultsWithQueue(const QString& file, const Report& results,
                                                                          ZOLTTaskQueue* queue) const
{
    return VerifyTTATask::initVerifyTTATaskWithResultsQueueLaunchPathArguments(results, queue, tool(u"ttaenc"_s),
                                                                               {u"-t"_s, file});
}

std::shared_ptr<VerifyWavepackTask>
ChecksumTab::verifyWavepackWithResultsWithQueue(const QString& file, const Report& results, ZOLTTaskQueue* queue) const
{
    return VerifyWavepackTask::initVerifyWavepackTaskWithResultsQueueLaunchPathArguments(
        results, queue, tool(u"wvunpack"_s), {u"-v"_s, file});
}

std::shared_ptr<VerifyApeTask> ChecksumTab::verifyAPEWithResultsWithQueue(const QString& file, const Report& results,
                                                                          ZOLTTaskQueue* queue) const
{
    return VerifyApeTask::initVerifyApeTaskWithResultsQueueLaunchPathArguments(results, queue, tool(u"mac"_s),
                                                                               {file, u"-v"_s});
}

std::shared_ptr<VerifyFlacTask> ChecksumTab::verifyFlacWithResultsWithQueue(const QString& file, const Report& results,
                                                                            ZOLTTaskQueue* queue) const
{
    auto task = VerifyFlacTask::initVerifyFlacTaskWithResultsQueueLaunchPathArguments(results, queue, tool(u"flac"_s),
                                                                                      {u"-t"_s, file});
    task->setTitle(u"Verify FLAC"_s);
    return task;
}

void ChecksumTab::queueAsOneReport(TaskMaker taskOf)
{
    const auto results = std::make_shared<ZOLTTaskResults>();
    std::vector<Task> tasks;
    for (const QString& file : fileNames().copy()) {
        if (const Task task = taskOf(*this, file, results, taskQueue())) tasks.push_back(task);
    }
    for (const Task& task : tasks)
        results->addTaskInSet(task);
    taskQueue()->addTasks(tasks);
}

bool ChecksumTab::createFingerprints(const QStringList& files, bool sourceSave) const
{
    const OptionalText list = listPath(files.first(), sourceSave, fingerprintListName, u"Save fingerprint as..."_s);
    if (!list) return false;
    QString text = checksumList::header(u";flac fingerprints generated by Zolt %@ on %@\n\n"_s);
    for (const QString& file : files)
        text += fingerprint(file);
    checksumList::write(*list, text);
    return true;
}

void ChecksumTab::createList(bool sourceSave)
{
    const QStringList files = fileNames().copy();
    const QStringList flac = flacFiles(files), hashable = hashableFiles(files);
    const QString wanted = kind();
    if (wanted == C::FFP && !flac.isEmpty() && !createFingerprints(flac, sourceSave)) return; // the list stays
    Task task;
    if (wanted == C::MD5) task = createMD5WithQueueSourceSave(fileList(), taskQueue(), sourceSave);
    if (wanted == C::ST5 && !hashable.isEmpty()) task = createST5WithQueueSourceSave(hashable, taskQueue(), sourceSave);
    if (task) taskQueue()->addTask(task);
    clearFiles();
}

void ChecksumTab::executeCommand(Sender)
{
    if (fileNames().isEmpty()) return;
    const bool sourceSave = sourceSaveButton->state();
    const int command = commandOptions->selectedRow();
    if (command == CreateList) return createList(sourceSave);
    if (command == TestFiles) queueAsOneReport(testOf);
    if (command == VerifyLists) queueAsOneReport(verificationOf);
    clearFiles();
}

void ChecksumTab::displayRelevantOptions()
{
    const bool creates = commandOptions->selectedRow() == CreateList;
    createChecksumOptions->setEnabled(creates);
    sourceSaveButton->setEnabled(creates);
}

Outlets ChecksumTab::outlets() const
{
    return {{u"commandOptions"_s, commandOptions},
            {u"createChecksumOptions"_s, createChecksumOptions},
            {u"sourceSaveButton"_s, sourceSaveButton}};
}

bool ChecksumTab::queueIsFull() const
{
    const ZOLTTaskQueue* const queue = taskQueue();
    return queue && queue->activeTask() >= queue->maxThreads();
}

WorkPlan ChecksumTab::workPlan() const
{
    WorkPlan plan = BaseTab::workPlan();
    const int command = commandOptions->selectedRow();
    if (command == TestFiles) checksumPlan::testing(plan);
    if (command == VerifyLists) checksumPlan::verifying(plan);
    if (command != CreateList) return plan;
    checksumPlan::creating(plan, kind(), sourceSaveButton->state());
    if (kind() == C::MD5 && queueIsFull())
        plan.cautions += u"The queue is full: an MD5 list made now would name no files. Wait until a task has ended"_s;
    return plan;
}

} // namespace zolt

#include "PanelCost.h"

#include "Clock.h"
#include "IdleTask.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/threads/MainQueue.h"

#include <cstdio>

namespace zolt::bench {

namespace {

constexpr int repetitions = 5;

/// Microseconds a row.
struct Cost
{
    double adding = 1e12, ending = 1e12, sweeping = 1e12;

    void takeBest(const Cost& other)
    {
        adding = std::min(adding, other.adding);
        ending = std::min(ending, other.ending);
        sweeping = std::min(sweeping, other.sweeping);
    }
};

Cost costOf(int rows)
{
    ZOLTTaskQueue queue;
    std::vector<std::shared_ptr<IdleTask>> tasks;
    for (int i = 0; i < rows; ++i)
        tasks.push_back(IdleTask::make(&queue));
    const double perRow = 1000.0 / rows;
    Cost cost;
    // The event loop runs between one row and the next.
    cost.adding = perRow * millisecondsOf([&] {
                      for (const auto& task : tasks) {
                          queue.addTask(task);
                          MainQueue::instance().drain();
                      }
                  });
    for (const auto& task : tasks)
        task->setError(true); // so that the rows stay until they are removed
    cost.ending = perRow * millisecondsOf([&] {
                      for (const auto& task : tasks) {
                          task->end();
                          MainQueue::instance().drain();
                      }
                  });
    cost.sweeping = perRow * millisecondsOf([&] { queue.removeAllErrors(nullptr); });
    return cost;
}

} // namespace

void printPanelCost()
{
    Cost few, many;
    for (int i = 0; i < repetitions; ++i) {
        few.takeBest(costOf(1000));
        many.takeBest(costOf(10000));
    }
    std::printf("queue panel, microseconds a row   1,000 rows   10,000 rows   ratio\n");
    const auto line = [](const char* what, double low, double high) {
        std::printf("  %-31s %11.2f %13.2f %7.2f\n", what, low, high, high / low);
    };
    line("adding", few.adding, many.adding);
    line("ending", few.ending, many.ending);
    line("sweeping", few.sweeping, many.sweeping);
}

} // namespace zolt::bench

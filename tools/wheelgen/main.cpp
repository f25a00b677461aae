// wheelgen: makes the wheels of data/wheels smaller. Stop it when you like; it goes on from what is stored.
//
//   wheelgen improve FOLDER --seed S [--work W] [--minutes M] [--published FILE] [N k x y]
//   wheelgen remake FOLDER N k x y      takes the noted steps again and compares the rows
//   wheelgen make FOLDER N k x y --step "orbits - seed 1 work 1000000" …    takes steps that you know to be good
//   wheelgen merge FOLDER OTHER         takes over what is smaller in another folder
//
// Steps are told in wheels/recipe.h. make and merge prove a wheel before they keep it.
// improve visits every problem once with little work when it has no wheel yet, then those whose wheels are furthest
// from what is known to be possible. W is the work of one visit. Times only end the run: what a visit does follows
// from the seed alone.
#include <chrono>
#include <cstdio>
#include <cstring>
#include <set>
#include <stdexcept>
#include <string>

#include "selection/wheel_proof.h"
#include "wheels/improve.h"
#include "wheels/published.h"

namespace {

using namespace wheels;
using Clock = std::chrono::steady_clock;

struct Orders {
    std::string verb;
    std::string folder;
    std::uint64_t seed = 1;
    std::uint64_t work = 3'000'000'000;
    double minutes = 10;
    std::string published;
    std::vector<int> numbers;
    std::vector<std::string> steps;
    std::string other;
    WheelProblem problem() const { return {numbers.at(0), numbers.at(1), numbers.at(2), numbers.at(3)}; }
};

Orders read(int count, char** words) {
    Orders orders;
    if (count < 3)
        throw std::runtime_error("wheelgen improve|remake|make|merge FOLDER …");
    orders.verb = words[1];
    orders.folder = words[2];
    for (int place = 3; place < count; ++place) {
        const std::string word = words[place];
        const auto next = [&] { return std::string(++place < count ? words[place] : ""); };
        if (word == "--seed")
            orders.seed = std::stoull(next());
        else if (word == "--work")
            orders.work = std::stoull(next());
        else if (word == "--minutes")
            orders.minutes = std::stod(next());
        else if (word == "--published")
            orders.published = next();
        else if (word == "--step")
            orders.steps.push_back(next());
        else if (orders.verb == "merge")
            orders.other = word;
        else
            orders.numbers.push_back(std::stoi(word));
    }
    return orders;
}

/// A problem with the size that would content us.
struct Task {
    WheelProblem problem;
    std::int64_t lower = 1;
    std::int64_t wanted = 1; ///< the best published size, or the lower bound
    bool published = false;
    int visits = 0;
};

std::vector<Task> tasks(const Orders& orders) {
    const auto known = readPublished(orders.published);
    std::set<WheelProblem> problems;
    if (orders.numbers.size() == 4)
        problems.insert(orders.problem());
    else
        for (const selection::WheelTable& table : selection::wheelTables())
            problems.insert(table.problem);
    std::vector<Task> list;
    for (const WheelProblem& problem : problems) {
        const Published sizes = knownSizes(problem, known);
        const bool published = sizes.upper != 0;
        const Task task{problem, sizes.lower, published ? sizes.upper : sizes.lower, published};
        // The super family leaves out what must be too long.
        if (task.lower <= static_cast<std::int64_t>(selection::kMostSuperRows) || problem.row == 7)
            list.push_back(task);
    }
    return list;
}

/// How much the first visit is worth: nothing at the bound, most where a published size is missed.
double worth(const Task& task, const WheelStore& store) {
    const Wheel* wheel = store.find(task.problem);
    if (wheel == nullptr)
        return 1000;
    const auto rows = static_cast<std::int64_t>(wheel->rows.size());
    if (rows <= task.lower)
        return 0;
    if (!task.published)
        return 0.03;
    if (rows <= task.wanted)
        return 0.003;
    return excess(rows, task.wanted) > allowance(task.problem, task.wanted) ? 1.0 : 0.1;
}

void report(const Task& task, const WheelStore& store, Clock::time_point start) {
    const std::chrono::duration<double> seconds = Clock::now() - start;
    std::printf("%7.1f s  %2d %d %d %d  %zu rows, %s %lld\n", seconds.count(), task.problem.positions,
                task.problem.row, task.problem.chosen, task.problem.common, store.find(task.problem)->rows.size(),
                task.published ? "published" : "at least", static_cast<long long>(task.wanted));
    std::fflush(stdout);
}

/// A random task, the likelier the more it is worth and the less often it had its turn; null when all is done.
Task* nextTask(std::vector<Task>& list, const WheelStore& store, Random& random) {
    std::vector<double> shares;
    double total = 0;
    for (const Task& task : list)
        total += shares.emplace_back(worth(task, store) / (1 + task.visits));
    double left = random.unit() * total;
    for (std::size_t place = 0; place < list.size(); ++place)
        if ((left -= shares[place]) < 0)
            return &list[place];
    return nullptr;
}

int improve(const Orders& orders) {
    WheelStore store(orders.folder);
    Improver improver(store, orders.seed);
    Random random(orders.seed + 1);
    std::vector<Task> list = tasks(orders);
    const Clock::time_point start = Clock::now();
    const auto visit = [&](Task& task, std::uint64_t work) {
        ++task.visits;
        if (!improver.visit(task.problem, work))
            return;
        report(task, store, start);
        store.save();
    };
    constexpr std::uint64_t kFirstShare = 20; // a wheel at all, for every problem, before the first good one
    for (Task& task : list)
        if (store.find(task.problem) == nullptr)
            visit(task, orders.work / kFirstShare);
    while (Clock::now() - start < std::chrono::duration<double>(orders.minutes * 60)) {
        Task* task = nextTask(list, store, random);
        if (task == nullptr)
            break; // everything is at its bound
        visit(*task, orders.work);
    }
    return 0;
}

int remakeOne(const Orders& orders) {
    const WheelStore store(orders.folder);
    const Wheel* stored = store.find(orders.problem());
    if (stored == nullptr)
        throw std::runtime_error("no such wheel");
    Wheel again = remake(orders.problem(), stored->made, store);
    sortRows(again.rows);
    std::printf("%zu rows, stored %zu: %s\n", again.rows.size(), stored->rows.size(),
                again.rows == stored->rows ? "the same" : "different");
    return again.rows == stored->rows ? 0 : 1;
}

void offerProven(WheelStore& store, const WheelProblem& problem, const Wheel& wheel) {
    if (selection::firstUncovered(problem, wheel.rows))
        throw std::runtime_error("not a wheel of " + selection::describe(problem));
    std::printf("%s: %zu rows%s\n", selection::describe(problem).c_str(), wheel.rows.size(),
                store.offer(problem, wheel) ? "" : ", not fewer than stored");
}

int make(const Orders& orders) {
    WheelStore store(orders.folder);
    offerProven(store, orders.problem(), remake(orders.problem(), orders.steps, store));
    store.save();
    return 0;
}

int merge(const Orders& orders) {
    WheelStore store(orders.folder);
    const WheelStore other(orders.other);
    for (const auto& [problem, wheel] : other.wheels())
        if (const Wheel* stored = store.find(problem); stored == nullptr || wheel.rows.size() < stored->rows.size())
            offerProven(store, problem, wheel);
    store.save();
    return 0;
}

struct Verb {
    const char* name;
    int (*run)(const Orders&);
};
constexpr Verb kVerbs[] = {{"improve", improve}, {"remake", remakeOne}, {"make", make}, {"merge", merge}};

} // namespace

int main(int count, char** words) {
    try {
        const Orders orders = read(count, words);
        for (const Verb& verb : kVerbs)
            if (orders.verb == verb.name)
                return verb.run(orders);
        throw std::runtime_error("no such verb: " + orders.verb);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "wheelgen: %s\n", error.what());
        return 2;
    }
}

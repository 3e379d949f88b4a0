// A program that ends while reads hang, others go on, and a removal takes its time: QUITTING FIFO FILE
// MILLISECONDS.
#include "models/support/Background.h"

#include <QCoreApplication>
#include <QTimer>
#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <map>
#include <string>
#include <thread>

namespace {

using tavrel::Background;

/// What static destruction would take from under a thread.
const std::map<int, std::string> table = {{1, "one"}, {2, "two"}};

int run(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const std::string dead = argv[1];
    const std::string file = argv[2];
    const auto pause = std::chrono::milliseconds(std::stoi(argv[3]));
    Background reads(Background::Kind::mayBeAbandoned, 2, std::chrono::milliseconds(1));
    Background removals(Background::Kind::mustFinish, 1);
    for (int at = 0; at < 5; ++at) reads.run([dead] { return ::open(dead.c_str(), O_RDONLY); }, [](int) {});
    const auto look = []() -> std::size_t {
        for (std::size_t sum = 0;; ++sum) {
            if (table.at(1).size() + sum == 0) return sum;
        }
    };
    reads.run(look, [](std::size_t) {});
    const auto write = [file, pause] {
        std::ofstream out(file);
        out << "all " << std::flush;
        std::this_thread::sleep_for(pause);
        out << "of it";
        return true;
    };
    removals.run(write, [](bool) {});
    QTimer::singleShot(50, &application, [] { QCoreApplication::exit(7); });
    const int status = QCoreApplication::exec();
    std::puts("the end");
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    return Background::leave(run(argc, argv));
}

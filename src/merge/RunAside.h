#pragma once

#include <QEventLoop>
#include <QThread>
#include <memory>
#include <type_traits>

/// Runs a work on a thread of its own and gives what it gives. The calling thread handles events meanwhile,
/// so that the window stays alive; who calls sees to it that nothing comes between.
template <typename Work> auto runAside(Work work) {
    using Result = std::invoke_result_t<Work>;
    Result result{};
    QEventLoop loop;
    const std::unique_ptr<QThread> thread(QThread::create([&] { result = work(); }));
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    thread->start();
    loop.exec();
    thread->wait();
    return result;
}

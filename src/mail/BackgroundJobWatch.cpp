#include "mail/BackgroundJobWatch.h"

#include "admin/BackgroundJob.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr auto interval = std::chrono::seconds(2);
constexpr int maximumWaits = 90;

/// 0 also when the list cannot be read.
QCoro::Task<qint64> activeJobCount() {
    try {
        const auto response = co_await APIClient::shared().get<JobListResponse>(u"api/jobs/list"_s);
        co_return std::count_if(response.jobs.begin(), response.jobs.end(),
                                [](const BackgroundJob &job) { return job.isActive(); });
    } catch (const std::exception &) {
        co_return 0;
    }
}

bool publish(const std::weak_ptr<MailboxViewModel> &model, qint64 count) {
    const auto alive = model.lock();
    if (alive)
        alive->backgroundJobsActive = count;
    return alive != nullptr;
}

} // namespace

QCoro::Task<> watchBackgroundJobs(std::weak_ptr<MailboxViewModel> model) {
    for (int waits = 0; waits < maximumWaits; ++waits) {
        const auto count = co_await activeJobCount();
        if (!publish(model, count) || count == 0)
            co_return;
        co_await Clock::shared().sleep(interval);
    }
    publish(model, 0);
}

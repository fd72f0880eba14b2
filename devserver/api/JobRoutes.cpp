#include "api/APIRoutes.h"

#include <unistd.h>

namespace {

nlohmann::json jobRecord(const JobRecord &job) {
    nlohmann::json record{{"_id", job.id}, {"type", job.type}, {"status", job.status}};
    if (!job.error.empty())
        record["error"] = job.error;
    if (job.startedAt)
        record["started_at"] = *job.startedAt;
    if (job.completedAt)
        record["completed_at"] = *job.completedAt;
    return record;
}

} // namespace

void addJobRoutes(Router &router, ServerContext &context) {
    router.add("GET", "api/jobs/list", [&](const APIRequest &request) {
        auto records = nlohmann::json::array();
        for (const auto &job : context.jobs.list(request.account().id))
            records.push_back(jobRecord(job));
        return APIResponse::json({{"jobs", std::move(records)}});
    });
    router.add("GET", "api/jobs/service-status", [&](const APIRequest &) {
        return APIResponse::json({{"running", true},
                                  {"pid", getpid()},
                                  {"pending_jobs", context.jobs.count("pending")},
                                  {"processing_jobs", context.jobs.count("running")}});
    });
}

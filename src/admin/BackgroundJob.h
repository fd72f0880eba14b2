#pragma once

#include "net/JSONRecord.h"

/// One piece of work that the server does in the background.
struct BackgroundJob {
    QString _id, type, status;
    std::optional<QString> error;
    std::optional<double> started_at, completed_at;

    bool operator==(const BackgroundJob &) const = default;

    bool isActive() const {
        return status == QLatin1StringView("pending") || status == QLatin1StringView("running") ||
               status == QLatin1StringView("processing");
    }
};

template <>
inline constexpr auto jsonFields<BackgroundJob> = jsonRecord(jsonField("_id", &BackgroundJob::_id),
                                                             jsonField("type", &BackgroundJob::type),
                                                             jsonField("status", &BackgroundJob::status),
                                                             jsonField("error", &BackgroundJob::error),
                                                             jsonField("started_at", &BackgroundJob::started_at),
                                                             jsonField("completed_at", &BackgroundJob::completed_at));

struct JobListResponse {
    std::vector<BackgroundJob> jobs;
};

template <> inline constexpr auto jsonFields<JobListResponse> = jsonRecord(jsonField("jobs", &JobListResponse::jobs));

#include "api/APIRoutes.h"

#include <algorithm>

namespace {

/// Up to here a change of many messages is made while the request waits.
constexpr std::size_t mostWithoutJob = 5;
/// A job moves so many messages at a time; each batch is announced once.
constexpr std::size_t jobBatch = 10;

char flagLetter(const std::string &name) {
    if (name == "seen")
        return 'S';
    if (name == "flagged")
        return 'F';
    if (name == "answered")
        return 'R';
    throw APIError(400, "There is no flag \"" + name + "\"");
}

/// What move and delete come down to: where messages go, or nowhere.
struct Departure {
    std::string from;
    std::optional<std::string> to;

    int carryOut(Mailbox &mailbox, const std::vector<std::int64_t> &uids) const {
        return to ? mailbox.move(from, uids, *to) : mailbox.remove(from, uids);
    }
};

Departure readMove(const APIRequest &request) {
    return {request.bodyText("from_folder"), request.bodyText("to_folder")};
}

Departure readDelete(const APIRequest &request) {
    const bool permanent = request.bodyFlag("permanent");
    return {request.bodyText("folder"), permanent ? std::nullopt : std::optional(request.bodyText("to_folder"))};
}

APIResponse departOne(Mailbox &mailbox, const APIRequest &request, const Departure &departure) {
    const auto uid = request.bodyInteger("uid");
    mailbox.summary(departure.from, uid);
    departure.carryOut(mailbox, {uid});
    return APIResponse::done();
}

void runDeparture(Mailbox &mailbox, const Departure &departure, const std::vector<std::int64_t> &uids,
                  const JobRunner::Rest &rest) {
    try {
        for (auto batch = uids.begin(); batch != uids.end();) {
            rest();
            const auto left = static_cast<std::size_t>(uids.end() - batch);
            const auto end = batch + static_cast<std::ptrdiff_t>(std::min(jobBatch, left));
            departure.carryOut(mailbox, {batch, end});
            batch = end;
        }
    } catch (const std::exception &) {
        mailbox.endDeparture(departure.from, uids);
        throw;
    }
}

APIResponse departMany(const ServerContext &context, const APIRequest &request, const std::string &jobType,
                       const Departure &departure) {
    auto &mailbox = context.mailbox(request);
    const auto uids = request.bodyIntegers("uids");
    if (uids.size() <= mostWithoutJob) {
        departure.carryOut(mailbox, uids);
        return APIResponse::done();
    }
    if (departure.to)
        mailbox.requireTarget(*departure.to);
    mailbox.beginDeparture(departure.from, uids);
    context.runner.start(request.account().id, jobType, [&mailbox, departure, uids](const JobRunner::Rest &rest) {
        runDeparture(mailbox, departure, uids, rest);
    });
    return APIResponse::done();
}

APIResponse setFlag(Mailbox &mailbox, const APIRequest &request, const std::vector<std::int64_t> &uids) {
    mailbox.setFlag(request.bodyText("folder"), uids, flagLetter(request.bodyText("flag")), request.bodyFlag("set"));
    return APIResponse::done();
}

} // namespace

void addChangeRoutes(Router &router, ServerContext &context) {
    router.add("POST", "api/emails/flag", [&](const APIRequest &request) {
        auto &mailbox = context.mailbox(request);
        const auto uid = request.bodyInteger("uid");
        mailbox.summary(request.bodyText("folder"), uid);
        return setFlag(mailbox, request, {uid});
    });
    router.add("POST", "api/emails/bulk-flag", [&](const APIRequest &request) {
        return setFlag(context.mailbox(request), request, request.bodyIntegers("uids"));
    });
    router.add("POST", "api/emails/move", [&](const APIRequest &request) {
        return departOne(context.mailbox(request), request, readMove(request));
    });
    router.add("POST", "api/emails/delete", [&](const APIRequest &request) {
        return departOne(context.mailbox(request), request, readDelete(request));
    });
    router.add("POST", "api/emails/bulk-move",
               [&](const APIRequest &request) { return departMany(context, request, "bulk_move", readMove(request)); });
    router.add("POST", "api/emails/bulk-delete", [&](const APIRequest &request) {
        return departMany(context, request, "bulk_delete", readDelete(request));
    });
}

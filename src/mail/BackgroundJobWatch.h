#pragma once

#include "mail/MailboxViewModel.h"

/// Keeps `backgroundJobsActive` in step with the server until nothing runs there, for three minutes at most; ends
/// early when the model is gone.
QCoro::Task<> watchBackgroundJobs(std::weak_ptr<MailboxViewModel> model);

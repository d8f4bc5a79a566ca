#include "companions/hosthand/job.h"

#include <cerrno>

Outcome Failure() {
    return Failure(errno);
}

Outcome Failure(int error) {
    return {hand::ResultCode::Failed, error};
}

std::string Below(const std::string& path, const std::string& name) {
    return path.empty() ? name : path + '/' + name;
}

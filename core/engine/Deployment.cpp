#include <postwright/Deployment.h>

#include <utility>

namespace postwright {

namespace {

Deployment& CurrentDeployment() {
  static Deployment deployment = {POSTWRIGHT_VERIFY_HOST, POSTWRIGHT_USER_ID,
                                  POSTWRIGHT_PROBE_HOST};
  return deployment;
}

}  // namespace

const Deployment& GetDeployment() {
  return CurrentDeployment();
}

void SetDeployment(Deployment deployment) {
  CurrentDeployment() = std::move(deployment);
}

}  // namespace postwright

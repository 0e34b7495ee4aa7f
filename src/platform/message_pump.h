// The seam to the host's message loop.
#pragma once

namespace corvid {

class MessagePump {
 public:
  virtual ~MessagePump() = default;
  // Runs the host's message loop once for what is pending. The host may call into the library
  // meanwhile. A quit message is put back for the host to find.
  virtual void yield() = 0;
};

}  // namespace corvid

// The seam to the host's message loop.
#pragma once

namespace corvid {

class MessagePump {
 public:
  virtual ~MessagePump() = default;
  // Runs the host's message loop once for what is pending. The host may call into the library
  // meanwhile. True while a quit message waits, which is left for the host to find.
  virtual bool yield() = 0;
};

}  // namespace corvid

// The host's message loop, as Windows has it.
#pragma once

#include "platform/message_pump.h"

namespace corvid {

class WindowsMessagePump : public MessagePump {
 public:
  bool yield() override;
};

}  // namespace corvid

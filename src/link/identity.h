#pragma once

// Which unit is spoken to: the pair of board addresses, the unit's ID, its type and model.

#include <optional>
#include <string>
#include <string_view>

#include "link/link.h"

namespace kestrane {

class Identity {
  public:
    Identity(MainForm& form, Session& session, Link& link);

    void OptButID_Click(int index);
    void cmdUnitID_Click();
    void txtUnitID_Change();

    // First step of a settings read: serial bytes and ID, and the addresses that follow from the
    // ID. False if the command failed or the block holds no ID.
    bool ReadUnitID();
    // Last step of a settings read: UnitType. False if the command failed.
    bool ReadUnitType();

  private:
    // While the settings read chooses the relay ID buttons by the ID that it has learnt.
    class Learning {
      public:
        explicit Learning(bool& learning) : learning_(learning) { learning_ = true; }
        ~Learning() { learning_ = false; }
        Learning(const Learning&) = delete;
        Learning& operator=(const Learning&) = delete;

      private:
        bool& learning_;
    };

    std::optional<int> WantedID() const;
    void UseAddress(int index);

    bool learning_ = false;
    MainForm& form_;
    Session& session_;
    Link& link_;
};

// The model of a display and a relay type code ("3D1", "3A9"); "-" if there is none.
std::string ModelOf(std::string_view display_code, std::string_view relay_code);

}  // namespace kestrane

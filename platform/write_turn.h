// Whose turn it is to write to a local database, among all programs that want to.
#pragma once

#include <chrono>
#include <string>

// The engine lets whoever asks at the right moment write next. A program that writes one
// transaction after the other asks again before those that wait have looked, and may keep them out
// for as long as it goes on. So everybody takes a turn first: a lock on the folder of the database,
// held only until the engine has granted its own. Who has just written waits behind who was
// waiting.
//
// It is a courtesy among programs that know it: where the folder cannot be locked, there is none.
class write_turn {
public:
    explicit write_turn(const std::string& databasePath);
    ~write_turn();
    write_turn(const write_turn&) = delete;
    write_turn& operator=(const write_turn&) = delete;

    void take(std::chrono::milliseconds longest); // goes on without it when it takes longer
    void giveBack();

private:
    int m_folder = -1;
    bool m_isTaken = false;
};

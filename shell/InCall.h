// Counts a call as long as it runs, however it ends.
#pragma once

class InCall
{
public:
    explicit InCall(int &Depth) : m_Depth(Depth) { ++m_Depth; }
    ~InCall() { --m_Depth; }
    InCall(const InCall &) = delete;
    InCall &operator=(const InCall &) = delete;

private:
    int &m_Depth;
};

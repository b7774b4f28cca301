#include "base/FileChain.h"

FileChain::Step FileChain::begin(int count)
{
    m_index = 0;
    m_count = count;
    m_skippingErrors = false;
    m_stopping = false;
    if (count <= 0)
        return end(Step::Done);
    m_state = State::Waiting;
    return Step::Request;
}

FileChain::Step FileChain::answered(int index, bool success)
{
    if (!expects(index))
        return Step::Ignored;
    if (!success && !m_skippingErrors && !m_stopping) {
        m_state = State::Asking;
        return Step::AskAboutError;
    }
    return goOn();
}

FileChain::Step FileChain::resolve(ErrorChoice choice)
{
    if (m_state != State::Asking)
        return Step::Ignored;
    if (choice == ErrorChoice::Cancel)
        m_stopping = true;
    m_skippingErrors = m_skippingErrors || choice == ErrorChoice::SkipForAll;
    return goOn();
}

void FileChain::stop()
{
    m_stopping = isActive();
}

FileChain::Step FileChain::goOn()
{
    if (m_stopping)
        return end(Step::Stopped);
    if (m_index + 1 >= m_count)
        return end(Step::Done);
    ++m_index;
    m_state = State::Waiting;
    return Step::Request;
}

FileChain::Step FileChain::end(Step step)
{
    m_state = State::Idle;
    return step;
}

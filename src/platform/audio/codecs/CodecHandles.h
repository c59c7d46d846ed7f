// Owners for the codec libraries' objects. Each frees what it holds with the call that the library asks for.
#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/audio_fifo.h>
#include <libavutil/channel_layout.h>
#include <libswresample/swresample.h>
}

#include <memory>

namespace zolt {

struct CodecHandleDeleter
{
    void operator()(AVFormatContext* demuxer) const { avformat_close_input(&demuxer); }
    void operator()(AVCodecContext* codec) const { avcodec_free_context(&codec); }
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
    void operator()(AVAudioFifo* fifo) const { av_audio_fifo_free(fifo); }
    void operator()(SwrContext* resampler) const { swr_free(&resampler); }
};

template <typename T> using CodecHandle = std::unique_ptr<T, CodecHandleDeleter>;

/// The handle, or std::bad_alloc where the library could not make one.
template <typename T> CodecHandle<T> ownedHandle(T* made)
{
    if (!made) throw std::bad_alloc();
    return CodecHandle<T>(made);
}

} // namespace zolt

"""What is played: each scene is a function that takes the hands, under the sentence that it shows."""

SCENES = []


def scene(sentence):
    def remember(play):
        SCENES.append((sentence, play))
        return play
    return remember

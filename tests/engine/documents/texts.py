# SPDX-License-Identifier: GPL-3.0-or-later
"""Running text for the drawn documents."""

TOWN = [
    "The ferry has crossed the river at Oldham Reach since 1874. It carries carts, cars and cattle, and on market days "
    "it runs from five in the morning until the last farmer has gone home.",
    "Two cables hold it against the stream. The upper one was replaced in the spring of last year, after divers had "
    "found that eleven of its strands were broken close to the northern tower.",
    "The crew is small. A ferryman stands at the wheel, a second man looks after the ramp, and in summer a pupil from "
    "the school collects the fares and answers the questions of visitors.",
    "High water stops the crossing on about nine days a year. Drivers then have to take the bridge at Welby, which "
    "adds twenty-three kilometres to the way and half an hour to the journey.",
    "Whether a bridge should take the place of the ferry has been argued for ninety years. The council asked for a new "
    "opinion in March; it is to be read in public when the harvest is in.",
    "Those who use it every day are of two minds. They would save time, but they would lose the only quarter of an "
    "hour in which nobody can ask anything of them.",
]
GARDEN = [
    "A kitchen garden needs three beds at least, because cabbages, beans and roots must not return to the same soil "
    "within three years. Four beds are better, for then one of them can rest.",
    "Seed is sown when the ground no longer sticks to the spade. A handful of earth that falls apart when it is dropped "
    "from the knee is dry enough; one that stays a ball is not.",
    "Water in the evening and at the foot of the plants. Wet leaves scorch in the sun and invite mildew at night, so "
    "a can with a long spout does more good than a sprinkler.",
    "Slugs come from the rough grass at the edge. A strip of bare, dry soil as wide as a hand keeps most of them away, "
    "and boards laid out in the evening catch the rest.",
    "In October the beds are covered with leaves. Worms pull them down during the winter, and in March what is left "
    "can be raked together and put on the heap.",
]
CLOCK = [
    "The tower clock loses four seconds a day in summer and gains three in winter. A brass rod would do neither, but "
    "the rod of its pendulum is made of pine, which swells with the damp.",
    "It is wound on Saturdays. The weight of the striking train is raised by one hundred and twelve turns of the crank, "
    "that of the going train by seventy.",
    "The hands were gilded in 1931 and again in 1988. What looks black from the square is a green so dark that only "
    "the painter has ever seen it.",
]
